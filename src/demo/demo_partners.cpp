#include <iterator>

#include <QDate>
#include <QSet>
#include <QString>
#include <QStringList>

#include "demo/demo_tables.h"

// Agents, clients and suppliers with complete fiscal addresses: what invoices are made for.
namespace ventarix::demo {

namespace {

struct Lugar {
  const char *colonia, *localidad, *municipio, *estado, *codigo_postal;
};

const Lugar kLugares[] = {
    {"DEL VALLE CENTRO", "CIUDAD DE MÉXICO", "BENITO JUÁREZ", "CIUDAD DE MÉXICO", "03100"},
    {"NARVARTE PONIENTE", "CIUDAD DE MÉXICO", "BENITO JUÁREZ", "CIUDAD DE MÉXICO", "03020"},
    {"ROMA NORTE", "CIUDAD DE MÉXICO", "CUAUHTÉMOC", "CIUDAD DE MÉXICO", "06700"},
    {"VILLA COYOACÁN", "CIUDAD DE MÉXICO", "COYOACÁN", "CIUDAD DE MÉXICO", "04000"},
    {"SAN ÁNGEL", "CIUDAD DE MÉXICO", "ÁLVARO OBREGÓN", "CIUDAD DE MÉXICO", "01000"},
    {"TLALPAN CENTRO", "CIUDAD DE MÉXICO", "TLALPAN", "CIUDAD DE MÉXICO", "14000"},
    {"CIUDAD SATÉLITE", "NAUCALPAN DE JUÁREZ", "NAUCALPAN DE JUÁREZ", "ESTADO DE MÉXICO", "53100"},
    {"CENTRO", "TOLUCA DE LERDO", "TOLUCA", "ESTADO DE MÉXICO", "50000"},
    {"CENTRO", "SANTIAGO DE QUERÉTARO", "QUERÉTARO", "QUERÉTARO", "76000"},
    {"CENTRO", "HEROICA PUEBLA DE ZARAGOZA", "PUEBLA", "PUEBLA", "72000"},
    {"CENTRO", "CUERNAVACA", "CUERNAVACA", "MORELOS", "62000"},
    {"CENTRO", "PACHUCA DE SOTO", "PACHUCA DE SOTO", "HIDALGO", "42000"},
    {"AMERICANA", "GUADALAJARA", "GUADALAJARA", "JALISCO", "44160"},
};

const char* const kCalles[] = {"AV. INSURGENTES SUR",    "CALLE MORELOS",   "AV. JUÁREZ",
                               "CALLE HIDALGO",          "AV. UNIVERSIDAD", "CALLE 5 DE MAYO",
                               "PASEO DE LA REFORMA",    "CALLE ALLENDE",   "CALLE GUERRERO",
                               "AV. DIVISIÓN DEL NORTE", "CALLE ZARAGOZA",  "CALZ. DE TLALPAN"};
const char* const kGiros[] = {"CONSTRUCTORA",  "MATERIALES", "DESARROLLOS", "INSTALACIONES",
                              "MANTENIMIENTO", "HERRERÍA",   "CARPINTERÍA", "PROYECTOS",
                              "GRUPO",         "SERVICIOS"};
const char* const kRazones[] = {"DEL BAJÍO",  "SAN MIGUEL", "ALAMEDA",   "LOS PINOS",
                                "VALLE ALTO", "TRES RÍOS",  "ESPERANZA", "SANTA FE",
                                "HORIZONTE",  "EL ROBLE",   "CUMBRES",   "MIRADOR"};
const char* const kNombres[] = {"JOSÉ",   "MARÍA",  "JUAN",   "GUADALUPE", "FRANCISCO",
                                "ANA",    "MIGUEL", "LAURA",  "ALEJANDRO", "VERÓNICA",
                                "RAFAEL", "SOFÍA",  "ARTURO", "GABRIELA",  "ENRIQUE"};
const char* const kApellidos[] = {"HERNÁNDEZ", "GARCÍA",    "MARTÍNEZ", "LÓPEZ",   "GONZÁLEZ",
                                  "PÉREZ",     "RODRÍGUEZ", "SÁNCHEZ",  "RAMÍREZ", "CRUZ",
                                  "FLORES",    "MORALES",   "VARGAS",   "NÚÑEZ",   "ORTEGA"};

// Letters only, without accents: what an RFC is made of.
QString Llano(const QString& text) {
  QString out;
  for (const QChar ch : text.normalized(QString::NormalizationForm_D)) {
    if (ch.isLetter() && ch.unicode() < 128) out += ch;
  }
  return out;
}

// A date of incorporation or of birth; one draw after the other, so that the same seed gives
// the same dates whatever order a compiler evaluates arguments in.
QDate Fecha(Dice& dice, int desde, int hasta) {
  const int year = dice.Between(desde, hasta);
  const int month = dice.Between(1, 12);
  const int day = dice.Between(1, 28);
  return QDate(year, month, day);
}

// Initials of the words that count (articles and the company type don't), topped up from the
// first word.
QString RfcDeEmpresa(Dice& dice, const QString& razon) {
  static const QStringList kParticulas{
      QStringLiteral("DE"), QStringLiteral("DEL"), QStringLiteral("LA"), QStringLiteral("LOS"),
      QStringLiteral("EL"), QStringLiteral("Y"),   QStringLiteral("SA"), QStringLiteral("CV")};
  const QStringList words = razon.split(QLatin1Char(' '), Qt::SkipEmptyParts);
  QString letters;
  for (const QString& word : words) {
    const QString plain = Llano(word);
    if (!plain.isEmpty() && !kParticulas.contains(plain)) letters += plain[0];
  }
  letters += Llano(words.value(0)).mid(1);
  return Rfc(dice, letters.left(3), Fecha(dice, 1985, 2015));
}

// First letter and first inner vowel of the father's surname, initials of the mother's
// surname and of the name.
QString RfcDePersona(Dice& dice, const QString& nombre, const QString& paterno,
                     const QString& materno) {
  const QString p = Llano(paterno);
  QString vocal = QStringLiteral("X");
  for (int i = 1; i < p.size(); ++i) {
    if (QStringLiteral("AEIOU").contains(p[i])) {
      vocal = p[i];
      break;
    }
  }
  const QString letters = p.left(1) + vocal + Llano(materno).left(1) + Llano(nombre).left(1);
  return Rfc(dice, letters, Fecha(dice, 1955, 1995));
}

struct Socio {
  QString nombre, rfc, contacto;
};

// A company or a person, with a name not used before.
Socio SocioNuevo(Dice& dice, QSet<QString>& usados, bool persona) {
  for (;;) {
    Socio s;
    const QString nombre = Texto(dice.Pick(kNombres));
    const QString paterno = Texto(dice.Pick(kApellidos));
    const QString materno = Texto(dice.Pick(kApellidos));
    s.contacto = nombre + QLatin1Char(' ') + paterno;
    if (persona) {
      s.nombre = nombre + QLatin1Char(' ') + paterno + QLatin1Char(' ') + materno;
      s.rfc = RfcDePersona(dice, nombre, paterno, materno);
    } else {
      s.nombre = Texto(dice.Pick(kGiros)) + QLatin1Char(' ') + Texto(dice.Pick(kRazones)) +
                 QStringLiteral(" SA DE CV");
      s.rfc = RfcDeEmpresa(dice, s.nombre);
    }
    if (!usados.contains(s.nombre)) {
      usados.insert(s.nombre);
      return s;
    }
  }
}

QString Telefono(Dice& dice, const char* lada) {
  return QStringLiteral("%1 %2 %3")
      .arg(Texto(lada))
      .arg(dice.Between(2000, 5999))
      .arg(dice.Between(1000, 9999));
}

QString Correo(const QString& rfc, const char* buzon) {
  return Texto(buzon) + QLatin1Char('@') + rfc.toLower() + QStringLiteral(".example");
}

QString Cuenta(const char* prefijo, int numero) {
  return Texto(prefijo) + QStringLiteral("%1").arg(numero, 6, 10, QLatin1Char('0'));
}

// The fiscal address columns shared by clients and suppliers.
Fila Domicilio(Dice& dice) {
  const Lugar& l = dice.Pick(kLugares);
  const bool interior = dice.Between(0, 3) == 0;
  return {{"calle", Texto(dice.Pick(kCalles))},
          {"noexterior", QString::number(dice.Between(1, 2400))},
          {"nointerior", interior ? QString::number(dice.Between(1, 12)) : Vacio()},
          {"colonia", Texto(l.colonia)},
          {"localidad", Texto(l.localidad)},
          {"referencia", Vacio()},
          {"municipio", Texto(l.municipio)},
          {"estado", Texto(l.estado)},
          {"pais", Texto("MÉXICO")},
          {"codigopostal", Texto(l.codigo_postal)}};
}

Fila Contacto(Dice& dice, const Socio& s, const char* buzon) {
  return {{"contacto", s.contacto},
          {"telefonos", Telefono(dice, "55")},
          {"celular", Telefono(dice, "55 1")},
          {"nextel", Vacio()},
          {"email1", Correo(s.rfc, buzon)},
          {"email2", Vacio()},
          {"email3", Vacio()}};
}

// Client 1 is the counter sale of the point of sale: the SAT's generic RFC at the shop's own
// address, paying cash.
Fila PublicoEnGeneral() {
  return {{"numero", 1},
          {"nombre", Texto("PÚBLICO EN GENERAL")},
          {"rfc", Texto("XAXX010101000")},
          {"calle", Texto("AV. REVOLUCIÓN")},
          {"noexterior", Texto("1425")},
          {"nointerior", Texto("LOCAL 3")},
          {"colonia", Texto("CAMPESTRE")},
          {"localidad", Texto("CIUDAD DE MÉXICO")},
          {"referencia", Vacio()},
          {"municipio", Texto("ÁLVARO OBREGÓN")},
          {"estado", Texto("CIUDAD DE MÉXICO")},
          {"pais", Texto("MÉXICO")},
          {"codigopostal", Texto("01040")},
          {"plazo", 1},
          {"credito", 0.0},
          {"saldo", 0.0},
          {"agente", 1},
          {"metodo", 1},
          {"numctapago", Vacio()},
          {"banco", 1},
          {"contacto", Vacio()},
          {"telefonos", Vacio()},
          {"celular", Vacio()},
          {"nextel", Vacio()},
          {"email1", Vacio()},
          {"email2", Vacio()},
          {"email3", Vacio()},
          {"tipo", Texto("MOSTRADOR")},
          {"cuenta", Cuenta("100-003-", 1)},
          {"anotaciones", Vacio()},
          {"juridico", Texto("N")},
          {"addenda", Vacio()},
          {"status", Texto("ALTA")}};
}

// A client on credit: a company or a person, an agent, terms and a way of paying; the bank
// account's last four digits when the way of paying has one. Client 13 is in legal
// collection.
Fila Cliente(Dice& dice, QSet<QString>& usados, int numero) {
  static const int kPlazos[] = {15, 30, 30, 45, 60};
  static const char* const kTipos[] = {"MAYOREO", "CONTRATISTA", "CONTRATISTA", "GOBIERNO",
                                       "MOSTRADOR"};
  const Socio s = SocioNuevo(dice, usados, dice.Between(0, 2) == 0);
  const int metodo = dice.Between(1, kMetodos);
  const bool cuenta = metodo >= 2 && metodo <= 5;
  Fila row{{"numero", numero}, {"nombre", s.nombre}, {"rfc", s.rfc}};
  row += Domicilio(dice);
  row += Fila{{"plazo", dice.Pick(kPlazos)},
              {"credito", static_cast<double>(dice.Between(2, 30) * 5000)},
              {"saldo", 0.0},
              {"agente", dice.Between(2, kAgentes)},
              {"metodo", metodo},
              {"numctapago", cuenta ? QString::number(dice.Between(1000, 9999)) : Vacio()},
              {"banco", dice.Between(1, kBancos)}};
  row += Contacto(dice, s, "compras");
  row += Fila{{"tipo", Texto(dice.Pick(kTipos))},
              {"cuenta", Cuenta("100-003-", numero)},
              {"anotaciones", Vacio()},
              {"juridico", Texto(numero == 13 ? "S" : "N")},
              {"addenda", Vacio()},
              {"status", Texto("ALTA")}};
  return row;
}

// An agent's commission by the age of the collected invoice: the full rate within 30 days,
// less after.
Fila Agente(int numero, const char* nombre, const char* rfc, double base) {
  return {{"numero", numero},
          {"nombre", Texto(nombre)},
          {"direccion", Texto("AV. REVOLUCIÓN 1425")},
          {"colonia", Texto("CAMPESTRE")},
          {"ciudad", Texto("CIUDAD DE MÉXICO")},
          {"cp", Texto("01040")},
          {"rfc", Texto(rfc)},
          {"contacto", Vacio()},
          {"telefonos", Texto("55 5661 2040")},
          {"email", QStringLiteral("agente%1@ferreteriakemper.example").arg(numero)},
          {"cuenta", Vacio()},
          {"comision", base},
          {"anotaciones", Vacio()},
          {"tienda", 1},
          {"dias1", 0},
          {"dias2", 30},
          {"comision1", base},
          {"dias3", 31},
          {"dias4", 60},
          {"comision2", base / 2},
          {"dias5", 61},
          {"dias6", 90},
          {"comision3", base / 4},
          {"dias7", 91},
          {"dias8", 9999},
          {"comision4", 0.0},
          {"status", Texto("ALTA")}};
}

}  // namespace

bool EscribirAgentes(Connection& c, QString* error) {
  struct Datos {
    const char *nombre, *rfc;
    double comision;
  };
  static const Datos kLista[] = {{"VENTAS DE MOSTRADOR", "", 0.0},
                                 {"JUAN CARLOS MÉNDEZ RUIZ", "MERJ800512K31", 2.0},
                                 {"MARÍA FERNANDA TORRES LÓPEZ", "TOLF850923QA7", 2.5},
                                 {"ROBERTO SALAS GUTIÉRREZ", "SAGR770130L25", 2.0},
                                 {"PATRICIA NÚÑEZ ORTEGA", "NUOP820607HM3", 3.0}};
  static_assert(std::size(kLista) == kAgentes);
  RowWriter writer(c, QStringLiteral("agentes"));
  int numero = 0;
  for (const Datos& a : kLista) {
    if (!Agregar(writer, Agente(++numero, a.nombre, a.rfc, a.comision), error)) return false;
  }
  return true;
}

bool EscribirClientes(Connection& c, Dice& dice, QString* error) {
  RowWriter writer(c, QStringLiteral("clientes"));
  if (!Agregar(writer, PublicoEnGeneral(), error)) return false;
  QSet<QString> usados;
  for (int numero = 2; numero <= kClientes; ++numero) {
    if (!Agregar(writer, Cliente(dice, usados, numero), error)) return false;
  }
  return true;
}

bool EscribirProveedores(Connection& c, Dice& dice, QString* error) {
  static const char* const kLista[] = {
      "DISTRIBUIDORA FERRETERA DEL CENTRO SA DE CV",  "TORNILLOS Y FIJACIONES DE MÉXICO SA DE CV",
      "HERRAMIENTAS PROFESIONALES AZTECA SA DE CV",   "MATERIAL ELÉCTRICO VOLTA SA DE CV",
      "PINTURAS Y RECUBRIMIENTOS DEL VALLE SA DE CV", "HIDRÁULICA Y PLOMERÍA FLUX SA DE CV",
      "ADHESIVOS INDUSTRIALES FIJA SA DE CV",         "JARDINERÍA Y RIEGO VERDE SA DE CV",
      "CERRADURAS Y HERRAJES DE MÉXICO SA DE CV",     "EQUIPO DE SEGURIDAD PROTEK SA DE CV"};
  static_assert(std::size(kLista) == kProveedores);
  RowWriter writer(c, QStringLiteral("proveedores"));
  QSet<QString> usados;
  int numero = 0;
  for (const char* nombre : kLista) {
    ++numero;
    Socio s = SocioNuevo(dice, usados, true);  // the supplier's salesman
    s.nombre = Texto(nombre);
    s.rfc = RfcDeEmpresa(dice, s.nombre);
    Fila row{{"numero", numero}, {"nombre", s.nombre}, {"rfc", s.rfc}};
    row += Domicilio(dice);
    row += Fila{{"plazo", 30},
                {"credito", static_cast<double>(dice.Between(10, 40) * 10000)},
                {"saldo", 0.0}};
    row += Contacto(dice, s, "ventas");
    row += Fila{{"tipo", Texto("MAYOREO")},
                {"cuenta", Cuenta("200-100-", numero)},
                {"anotaciones", Vacio()},
                {"clave", QStringLiteral("PRV-%1").arg(numero, 3, 10, QLatin1Char('0'))},
                {"status", Texto("ALTA")}};
    if (!Agregar(writer, row, error)) return false;
  }
  return true;
}

}  // namespace ventarix::demo
