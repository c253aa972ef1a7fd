#include <iterator>

#include <QSet>
#include <QString>
#include <QStringList>

#include "catalogs/demo_tables.h"

// Agents, clients and suppliers with complete fiscal addresses: what invoices are made for.
namespace ventarix::demo {

namespace {

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

template <typename T, size_t N>
const T& Uno(Dice& dice, const T (&list)[N]) {
  return list[dice.Between(0, static_cast<int>(N) - 1)];
}

// Letters only, without accents: what an RFC is made of.
QString Llano(const QString& text) {
  QString out;
  for (const QChar ch : text.normalized(QString::NormalizationForm_D)) {
    if (ch.isLetter() && ch.unicode() < 128) out += ch;
  }
  return out;
}

QString RfcDeEmpresa(Dice& dice, const QString& razon) {
  static const QStringList kParticulas{
      QStringLiteral("DE"), QStringLiteral("DEL"), QStringLiteral("LA"), QStringLiteral("LOS"),
      QStringLiteral("EL"), QStringLiteral("SA"),  QStringLiteral("CV")};
  QString letters;
  QStringList words = razon.split(QLatin1Char(' '), Qt::SkipEmptyParts);
  for (const QString& word : words) {
    const QString plain = Llano(word);
    if (!plain.isEmpty() && !kParticulas.contains(plain)) letters += plain[0];
  }
  letters += Llano(words.value(0)).mid(1);
  return Rfc(dice, letters.left(3), dice.Between(1985, 2015), dice.Between(1, 12),
             dice.Between(1, 28));
}

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
  return Rfc(dice, letters, dice.Between(1955, 1995), dice.Between(1, 12), dice.Between(1, 28));
}

struct Socio {
  QString nombre, rfc, contacto;
  bool persona = false;
};

// A company or a person, with a name not used before.
Socio SocioNuevo(Dice& dice, QSet<QString>& usados, bool persona) {
  for (;;) {
    Socio s;
    s.persona = persona;
    const QString nombre = Texto(Uno(dice, kNombres));
    const QString paterno = Texto(Uno(dice, kApellidos));
    const QString materno = Texto(Uno(dice, kApellidos));
    s.contacto = nombre + QLatin1Char(' ') + paterno;
    if (persona) {
      s.nombre = nombre + QLatin1Char(' ') + paterno + QLatin1Char(' ') + materno;
      s.rfc = RfcDePersona(dice, nombre, paterno, materno);
    } else {
      s.nombre = Texto(Uno(dice, kGiros)) + QLatin1Char(' ') + Texto(Uno(dice, kRazones)) +
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

// The address columns shared by clients and suppliers.
QVariantList Domicilio(Dice& dice) {
  const Lugar& l = LugarAlAzar(dice);
  const bool interior = dice.Between(0, 3) == 0;
  return {Texto(Uno(dice, kCalles)),
          QString::number(dice.Between(1, 2400)),
          interior ? QStringLiteral("%1").arg(dice.Between(1, 12)) : Vacio(),
          Texto(l.colonia),
          Texto(l.localidad),
          Vacio(),
          Texto(l.municipio),
          Texto(l.estado),
          Texto("MÉXICO"),
          Texto(l.codigo_postal)};
}

QStringList ColumnasDomicilio() {
  return {QStringLiteral("calle"),       QStringLiteral("noexterior"), QStringLiteral("nointerior"),
          QStringLiteral("colonia"),     QStringLiteral("localidad"),  QStringLiteral("referencia"),
          QStringLiteral("municipio"),   QStringLiteral("estado"),     QStringLiteral("pais"),
          QStringLiteral("codigopostal")};
}

QString Correo(const QString& rfc, const char* buzon) {
  return Texto(buzon) + QLatin1Char('@') + rfc.toLower() + QStringLiteral(".example");
}

}  // namespace

const Lugar& LugarAlAzar(Dice& dice) { return Uno(dice, kLugares); }

bool EscribirAgentes(Connection& c, QString* error) {
  struct Agente {
    const char *nombre, *rfc;
    double comision;
  };
  static const Agente kLista[] = {{"VENTAS DE MOSTRADOR", "", 0.0},
                                  {"JUAN CARLOS MÉNDEZ RUIZ", "MERJ800512K31", 2.0},
                                  {"MARÍA FERNANDA TORRES LÓPEZ", "TOLF850923QA7", 2.5},
                                  {"ROBERTO SALAS GUTIÉRREZ", "SAGR770130L25", 2.0},
                                  {"PATRICIA NÚÑEZ ORTEGA", "NUOP820607HM3", 3.0}};
  static_assert(std::size(kLista) == kAgentes);
  RowWriter writer(
      c, QStringLiteral("agentes"),
      QStringList{
          QStringLiteral("numero"),      QStringLiteral("nombre"),    QStringLiteral("direccion"),
          QStringLiteral("colonia"),     QStringLiteral("ciudad"),    QStringLiteral("cp"),
          QStringLiteral("rfc"),         QStringLiteral("contacto"),  QStringLiteral("telefonos"),
          QStringLiteral("email"),       QStringLiteral("cuenta"),    QStringLiteral("comision"),
          QStringLiteral("anotaciones"), QStringLiteral("tienda"),    QStringLiteral("dias1"),
          QStringLiteral("dias2"),       QStringLiteral("comision1"), QStringLiteral("dias3"),
          QStringLiteral("dias4"),       QStringLiteral("comision2"), QStringLiteral("dias5"),
          QStringLiteral("dias6"),       QStringLiteral("comision3"), QStringLiteral("dias7"),
          QStringLiteral("dias8"),       QStringLiteral("comision4"), QStringLiteral("status")});
  int numero = 0;
  for (const Agente& a : kLista) {
    ++numero;
    const double base = a.comision;
    // Commission by age of the collected invoice: full rate within 30 days, less after.
    const QVariantList row{numero,
                           Texto(a.nombre),
                           Texto("AV. REVOLUCIÓN 1425"),
                           Texto("CAMPESTRE"),
                           Texto("CIUDAD DE MÉXICO"),
                           Texto("01040"),
                           Texto(a.rfc),
                           Vacio(),
                           Texto("55 5661 2040"),
                           QStringLiteral("agente%1@ferreteriakemper.example").arg(numero),
                           Vacio(),
                           base,
                           Vacio(),
                           1,
                           0,
                           30,
                           base,
                           31,
                           60,
                           base / 2,
                           61,
                           90,
                           base / 4,
                           91,
                           9999,
                           0.0,
                           Texto("ALTA")};
    if (!writer.Add(row)) {
      *error = writer.error();
      return false;
    }
  }
  return true;
}

bool EscribirClientes(Connection& c, Dice& dice, QString* error) {
  QStringList columns{QStringLiteral("numero"), QStringLiteral("nombre"), QStringLiteral("rfc")};
  columns << ColumnasDomicilio();
  columns << QStringList{
      QStringLiteral("plazo"),   QStringLiteral("credito"),     QStringLiteral("saldo"),
      QStringLiteral("agente"),  QStringLiteral("metodo"),      QStringLiteral("numctapago"),
      QStringLiteral("banco"),   QStringLiteral("contacto"),    QStringLiteral("telefonos"),
      QStringLiteral("celular"), QStringLiteral("nextel"),      QStringLiteral("email1"),
      QStringLiteral("email2"),  QStringLiteral("email3"),      QStringLiteral("tipo"),
      QStringLiteral("cuenta"),  QStringLiteral("anotaciones"), QStringLiteral("juridico"),
      QStringLiteral("addenda"), QStringLiteral("status")};
  RowWriter writer(c, QStringLiteral("clientes"), columns);
  // Client 1 is the counter sale of the point of sale: the SAT's generic RFC at the shop's
  // own address.
  QVariantList publico{1,
                       Texto("PÚBLICO EN GENERAL"),
                       Texto("XAXX010101000"),
                       Texto("AV. REVOLUCIÓN"),
                       Texto("1425"),
                       Texto("LOCAL 3"),
                       Texto("CAMPESTRE"),
                       Texto("CIUDAD DE MÉXICO"),
                       Vacio(),
                       Texto("ÁLVARO OBREGÓN"),
                       Texto("CIUDAD DE MÉXICO"),
                       Texto("MÉXICO"),
                       Texto("01040")};
  publico << 1 << 0.0 << 0.0 << 1 << 1 << Vacio() << 1 << Vacio() << Vacio() << Vacio()
          << Vacio() << Vacio() << Vacio() << Vacio() << Texto("MOSTRADOR")
          << QStringLiteral("100-003-000001") << Vacio() << Texto("N") << Vacio()
          << Texto("ALTA");
  if (!writer.Add(publico)) {
    *error = writer.error();
    return false;
  }
  QSet<QString> usados;
  static const int kPlazos[] = {15, 30, 30, 45, 60};
  static const char* const kTipos[] = {"MAYOREO", "CONTRATISTA", "CONTRATISTA", "GOBIERNO",
                                       "MOSTRADOR"};
  for (int numero = 2; numero <= kClientes; ++numero) {
    const Socio s = SocioNuevo(dice, usados, dice.Between(0, 2) == 0);
    const int metodo = dice.Between(1, kMetodos);
    const bool cuenta = metodo >= 2 && metodo <= 5;
    QVariantList row{numero, s.nombre, s.rfc};
    row << Domicilio(dice);
    row << Uno(dice, kPlazos) << static_cast<double>(dice.Between(2, 30) * 5000) << 0.0
        << dice.Between(2, kAgentes) << metodo
        << (cuenta ? QStringLiteral("%1").arg(dice.Between(1000, 9999)) : Vacio())
        << dice.Between(1, kBancos) << s.contacto << Telefono(dice, "55") << Telefono(dice, "55 1")
        << Vacio() << Correo(s.rfc, "compras") << Vacio() << Vacio()
        << Texto(Uno(dice, kTipos))
        << QStringLiteral("100-003-%1").arg(numero, 6, 10, QLatin1Char('0')) << Vacio()
        << Texto(numero == 13 ? "S" : "N") << Vacio() << Texto("ALTA");
    if (!writer.Add(row)) {
      *error = writer.error();
      return false;
    }
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
  QStringList columns{QStringLiteral("numero"), QStringLiteral("nombre"), QStringLiteral("rfc")};
  columns << ColumnasDomicilio();
  columns << QStringList{
      QStringLiteral("plazo"),    QStringLiteral("credito"),     QStringLiteral("saldo"),
      QStringLiteral("cuenta"),   QStringLiteral("anotaciones"), QStringLiteral("clave"),
      QStringLiteral("contacto"), QStringLiteral("telefonos"),   QStringLiteral("celular"),
      QStringLiteral("nextel"),   QStringLiteral("email1"),      QStringLiteral("email2"),
      QStringLiteral("email3"),   QStringLiteral("tipo"),        QStringLiteral("status")};
  RowWriter writer(c, QStringLiteral("proveedores"), columns);
  QSet<QString> usados;
  int numero = 0;
  for (const char* nombre : kLista) {
    ++numero;
    const QString razon = Texto(nombre);
    const QString rfc = RfcDeEmpresa(dice, razon);
    const Socio contacto = SocioNuevo(dice, usados, true);
    QVariantList row{numero, razon, rfc};
    row << Domicilio(dice);
    row << 30 << static_cast<double>(dice.Between(10, 40) * 10000) << 0.0
        << QStringLiteral("200-100-%1").arg(numero, 6, 10, QLatin1Char('0')) << Vacio()
        << QStringLiteral("PRV-%1").arg(numero, 3, 10, QLatin1Char('0')) << contacto.contacto
        << Telefono(dice, "55") << Telefono(dice, "55 1") << Vacio() << Correo(rfc, "ventas")
        << Vacio() << Vacio() << Texto("MAYOREO") << Texto("ALTA");
    if (!writer.Add(row)) {
      *error = writer.error();
      return false;
    }
  }
  return true;
}

}  // namespace ventarix::demo
