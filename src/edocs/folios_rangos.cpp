#include "edocs/folios_rangos.h"

#include <QLocale>

#include "core/database.h"
#include "core/dialect.h"
#include "core/mFunciones_valores.h"
#include "core/session.h"
#include "edocs/certificado.h"
#include "edocs/llave_privada.h"

namespace ventarix::edocs {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kMayorFolio = 2147483647;

// The schemes a check applies to, in the order CFD, CFDI, CBB, NOTA.
using Aplica = std::array<bool, 4>;

struct PasoRevision {
  bool (*falla)(const RangoFolios&);
  const char* mensaje;
  const char* campo;
  Aplica aplica;
};

qint64 Folio(const QString& texto) { return static_cast<qint64>(mFunciones::ValorNumerico(texto)); }

bool Vacio(const QString& texto) { return texto.trimmed().isEmpty(); }

// The order the screen checks a range in before saving.
const std::array<PasoRevision, 9>& Pasos() {
  static const std::array<PasoRevision, 9> kPasos = {{
      {[](const RangoFolios& r) {
         return Folio(r.folio_inicial) <= 0 || Folio(r.folio_final) <= 0;
       },
       "Se requiere la numeración de folios mayor a cero",
       "FolioInicial",
       {true, true, true, true}},
      {[](const RangoFolios& r) {
         return Folio(r.folio_final) < Folio(r.folio_inicial) || Folio(r.folio_final) > kMayorFolio;
       },
       "Se requiere una numeración correcta en folios",
       "FolioFinal",
       {true, true, true, true}},
      {[](const RangoFolios& r) { return Vacio(r.regimen_fiscal); },
       "Se requiere la entrada de un régimen fiscal",
       "RegimenFiscal",
       {true, true, true, false}},
      {[](const RangoFolios& r) { return Vacio(r.no_aprobacion); },
       "Se requiere la entrada de un número de aprobación",
       "NoAprobacion",
       {true, false, true, false}},
      {[](const RangoFolios& r) { return Vacio(r.ano_aprobacion); },
       "Se requiere la entrada de un año de aprobación",
       "AnoAprobacion",
       {true, false, true, false}},
      {[](const RangoFolios& r) { return Vacio(r.archivo_certificado); },
       "Se requiere un archivo certificado",
       "ArchivoCertificado",
       {true, true, false, false}},
      {[](const RangoFolios& r) { return Vacio(r.archivo_llave); },
       "Se requiere un archivo llave privada",
       "ArchivoLlave",
       {true, true, false, false}},
      {[](const RangoFolios& r) { return r.password.isEmpty(); },
       "Se requiere la entrada de una contraseña",
       "Password",
       {true, true, false, false}},
      {[](const RangoFolios& r) {
         return Vacio(r.no_certificado) || !r.valido_desde.isValid() || !r.valido_hasta.isValid();
       },
       "Se requiere un archivo certificado válido",
       "ArchivoCertificado",
       {true, true, false, false}},
  }};
  return kPasos;
}

struct CampoDeEsquema {
  const char* campo;
  Aplica aplica;
};

constexpr std::array<CampoDeEsquema, 6> kCamposDeEsquema = {{
    {"RegimenFiscal", {true, true, true, false}},
    {"NoAprobacion", {true, false, true, false}},
    {"AnoAprobacion", {true, false, true, false}},
    {"ArchivoCertificado", {true, true, false, false}},
    {"ArchivoLlave", {true, true, false, false}},
    {"Password", {true, true, false, false}},
}};

}  // namespace

QStringList CamposDelEsquema(Esquema esquema) {
  QStringList campos;
  for (const CampoDeEsquema& c : kCamposDeEsquema) {
    if (c.aplica[static_cast<size_t>(esquema)]) campos << QString::fromLatin1(c.campo);
  }
  return campos;
}

QString TamanoCbb(qint64 bytes) {
  return QString::number(qRound64(static_cast<double>(bytes) / 1024.0)) + u" Kb"_s;
}

const DatosFamiliaFolios& DatosDe(FamiliaFolios familia) {
  static const DatosFamiliaFolios kFacturas{
      FamiliaFolios::kFacturas,    "folios facturas", 0, "FoliosFacturas", true,
      "Archivos de imagen (*.jpg)"};
  static const DatosFamiliaFolios kNotas{
      FamiliaFolios::kNotas, "folios notas", 1,
      "FoliosNotas",         false,          "Archivos de imagen (*.jpg *.bmp)"};
  return familia == FamiliaFolios::kFacturas ? kFacturas : kNotas;
}

const std::array<Esquema, 4>& Esquemas() {
  static const std::array<Esquema, 4> kEsquemas = {Esquema::kCfd, Esquema::kCfdi, Esquema::kCbb,
                                                   Esquema::kNota};
  return kEsquemas;
}

QString TextoEsquema(Esquema esquema) {
  switch (esquema) {
    case Esquema::kCfd:
      return u"CFD"_s;
    case Esquema::kCfdi:
      return u"CFDI"_s;
    case Esquema::kCbb:
      return u"CBB"_s;
    case Esquema::kNota:
      break;
  }
  return u"NOTA"_s;
}

bool EsquemaDeTexto(const QString& texto, Esquema* esquema) {
  for (Esquema e : Esquemas()) {
    if (texto.trimmed().compare(TextoEsquema(e), Qt::CaseInsensitive) == 0) {
      *esquema = e;
      return true;
    }
  }
  return false;
}

QString EsquemaEnMensaje(const QString& texto) {
  return texto.compare(u"CFDI"_s, Qt::CaseInsensitive) == 0 ? u"CFDi"_s : texto;
}

QString VersionDe(Esquema esquema) {
  if (esquema == Esquema::kCfd) return u"2.2"_s;
  if (esquema == Esquema::kCfdi) return u"3.2"_s;
  return {};
}

bool EsSellado(Esquema esquema) { return esquema == Esquema::kCfd || esquema == Esquema::kCfdi; }

const QStringList& ItemsUbicarLogoTipo() {
  static const QStringList kItems = {u"Izquierda"_s, u"Derecha"_s};
  return kItems;
}

const QStringList& ItemsAlinearEmpresa() {
  static const QStringList kItems = {u"Izquierda"_s, u"Derecha"_s, u"Centro"_s};
  return kItems;
}

const QStringList& ItemsAlinearLogotipo() {
  // "Izquieda" is how the printed forms know it.
  static const QStringList kItems = {u"Arriba Izquierda"_s, u"Arriba"_s,        u"Arriba Derecha"_s,
                                     u"Derecha"_s,          u"Abajo Derecha"_s, u"Abajo"_s,
                                     u"Abajo Izquierda"_s,  u"Izquieda"_s,      u"Centro"_s};
  return kItems;
}

int IndiceDeLista(const QString& guardado, const QStringList& items) {
  bool numero = false;
  const int indice = guardado.trimmed().toInt(&numero);
  return numero && indice >= 0 && indice < items.size() ? indice : 0;
}

const QStringList& Etiquetas() {
  static const QStringList kEtiquetas = {
      u"EmisorNombre"_s,      u"EmisorDireccion"_s,   u"EmisorMunicipio"_s, u"ReceptorNombre"_s,
      u"ReceptorDireccion"_s, u"ReceptorMunicipio"_s, u"FacturaFolio"_s,    u"FacturaFecha"_s,
      u"FacturaVence"_s,      u"FacturaPlazo"_s,      u"FacturaTotal"_s,    u"FacturaLetra"_s};
  return kEtiquetas;
}

qint64 Cantidad(qint64 folio_inicial, qint64 folio_final) {
  return folio_final - folio_inicial + 1;
}

Outcome RevisarSerie(const Session& session, FamiliaFolios familia, const QString& serie,
                     Esquema esquema) {
  for (const QChar letra : serie) {
    if (letra < u'A' || letra > u'Z') {
      return Outcome::Warning(u"Se requiere que la serie sea únicamente texto [A-Z]"_s, u"Serie"_s);
    }
  }
  Connection c(session.Cadena);
  if (!c.ok()) return Outcome::Stop(c.error());
  QSqlQuery q =
      c.Exec(u"select esquema from "_s + dialect::Name(QLatin1String(DatosDe(familia).tabla)) +
                 u" where serie = ? and esquema <> ?"_s,
             {serie, TextoEsquema(esquema)});
  if (!q.isActive()) return Outcome::Stop(QueryError(q));
  if (q.next()) {
    return Outcome::Warning(u"Esta serie ya esta registrada con un esquema "_s +
                                EsquemaEnMensaje(q.value(0).toString()),
                            u"Serie"_s);
  }
  return Outcome::Ok();
}

Outcome RevisarRango(const RangoFolios& rango) {
  const auto columna = static_cast<size_t>(rango.esquema);
  for (const PasoRevision& paso : Pasos()) {
    if (paso.aplica[columna] && paso.falla(rango)) {
      return Outcome::Warning(QString::fromUtf8(paso.mensaje), QString::fromLatin1(paso.campo));
    }
  }
  // The names are joined to CarpetaCer wherever the range is opened or sealed.
  if (!EsSellado(rango.esquema)) return Outcome::Ok();
  return RevisarNombresDeArchivo(rango.archivo_certificado.trimmed(),
                                 rango.archivo_llave.trimmed());
}

QString FechaDeInforme(const QDateTime& fecha) {
  return fecha.isValid() ? QLocale::c().toString(fecha, u"dd/MM/yyyy HH:mm:ss"_s) : QString();
}

bool LeerInforme(const QString& archivo, RangoFolios* rango) {
  const Certificado certificado = LeerCertificadoDeArchivo(archivo);
  if (!certificado.ok) {
    rango->no_certificado.clear();
    rango->valido_desde = rango->valido_hasta = QDateTime();
    return false;
  }
  rango->no_certificado = certificado.NoCertificado.trimmed();
  rango->valido_desde = certificado.valido_desde;
  rango->valido_hasta = certificado.valido_hasta;
  return true;
}

Outcome RevisarContrasena(const QString& archivo_llave, const QString& password) {
  // A key file that is missing or is not an encrypted key fails the same way as a wrong
  // password: the key cannot be opened with what was typed.
  if (LlavePrivada::AbrirArchivo(archivo_llave, password).ok()) return Outcome::Ok();
  return Outcome::Warning(u"Esta contraseña no corresponde al archivo llave privada"_s,
                          u"Password"_s);
}

}  // namespace ventarix::edocs
