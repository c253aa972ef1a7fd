// Writing and reading a folio range with its side rows (certificados, cbb), and the default
// range of each family.
#include <QDir>
#include <QFile>
#include <QSqlError>

#include "core/database.h"
#include "core/dialect.h"
#include "core/mFunciones.h"
#include "core/mFunciones_valores.h"
#include "core/session.h"
#include "edocs/folios_rangos.h"

namespace ventarix::edocs {

using namespace Qt::StringLiterals;

namespace {

QString Tabla(FamiliaFolios familia) { return QString::fromLatin1(DatosDe(familia).tabla); }

qint32 Entero(const QString& texto) {
  return static_cast<qint32>(qBound(0.0, mFunciones::ValorNumerico(texto), 2147483647.0));
}

// The columns the range's scheme owns; the other schemes' columns are left as they are.
void ColumnasDelEsquema(const RangoFolios& r, bool sql, QVariantMap* fila) {
  if (r.esquema == Esquema::kNota) return;
  fila->insert(u"regimenfiscal"_s, mFunciones::ValorTexto(r.regimen_fiscal));
  if (r.esquema != Esquema::kCfdi) {
    fila->insert(u"noaprobacion"_s, mFunciones::ValorTexto(r.no_aprobacion));
    fila->insert(u"anoaprobacion"_s, Entero(r.ano_aprobacion));
  }
  if (!EsSellado(r.esquema)) return;
  fila->insert(u"archivocertificado"_s, r.archivo_certificado.trimmed());
  fila->insert(u"archivollave"_s, r.archivo_llave.trimmed());
  fila->insert(u"nocertificado"_s, r.no_certificado.trimmed());
  fila->insert(u"validodesde"_s, dialect::DateValue(r.valido_desde, sql));
  fila->insert(u"validohasta"_s, dialect::DateValue(r.valido_hasta, sql));
  fila->insert(u"algoritmosellodigital"_s, u"sha-1"_s);
}

void ColumnasComunes(const RangoFolios& r, FamiliaFolios familia, QVariantMap* fila) {
  const qint32 inicial = Entero(r.folio_inicial);
  const qint32 final = Entero(r.folio_final);
  fila->insert(u"serie"_s, r.serie);
  fila->insert(u"esquema"_s, TextoEsquema(r.esquema));
  fila->insert(u"folioinicial"_s, inicial);
  fila->insert(u"foliofinal"_s, final);
  fila->insert(u"cantidad"_s, static_cast<qint32>(Cantidad(inicial, final)));
  fila->insert(u"domicilio"_s, mFunciones::ValorTexto(r.domicilio));
  for (int i = 0; i < 3; ++i) {
    fila->insert(u"leyenda"_s + QString::number(i + 1), mFunciones::ValorTexto(r.leyendas[i]));
  }
  if (DatosDe(familia).pagare) fila->insert(u"pagare"_s, mFunciones::ValorTexto(r.pagare));
  fila->insert(u"imprimirlogotipo"_s, r.imprimir_logotipo ? u"S"_s : u"N"_s);
  fila->insert(u"ubicarlogotipo"_s, QString::number(r.ubicar_logotipo));
  fila->insert(u"alinearempresa"_s, QString::number(r.alinear_empresa));
  fila->insert(u"alinearlogotipo"_s, QString::number(r.alinear_logotipo));
  fila->insert(u"version"_s, VersionDe(r.esquema));
  fila->insert(u"status"_s, r.status.isEmpty() ? u"ALTA"_s : r.status);
}

bool Insertar(Connection& c, const QString& tabla, const QVariantMap& fila, QString* error) {
  QStringList nombres;
  for (const QString& columna : fila.keys()) nombres << dialect::Name(columna);
  return c.Run(u"insert into "_s + dialect::Name(tabla) + u" ("_s + nombres.join(u", "_s) +
                   u") values ("_s + QStringList(fila.size(), u"?"_s).join(u", "_s) + u')',
               fila.values(), error);
}

bool Actualizar(Connection& c, const QString& tabla, const QVariantMap& fila,
                const QString& condicion, const QVariantList& llave, QString* error) {
  QStringList asignaciones;
  for (const QString& columna : fila.keys()) asignaciones << dialect::Name(columna) + u" = ?"_s;
  return c.Run(u"update "_s + dialect::Name(tabla) + u" set "_s + asignaciones.join(u", "_s) +
                   u" where "_s + condicion,
               fila.values() + llave, error);
}

// The row of a side table (certificados, cbb) of the range: added when missing, else rewritten.
bool GuardarLado(Connection& c, const QString& tabla, int documento, qint32 numero,
                 QVariantMap fila, QString* error) {
  const QString donde = u"documento = ? and numero = ?"_s;
  QSqlQuery q =
      c.Exec(u"select count(*) from "_s + tabla + u" where "_s + donde, {documento, numero});
  if (!q.next()) {
    *error = QueryError(q);
    return false;
  }
  if (q.value(0).toInt() > 0) return Actualizar(c, tabla, fila, donde, {documento, numero}, error);
  fila.insert(u"documento"_s, documento);
  fila.insert(u"numero"_s, numero);
  return Insertar(c, tabla, fila, error);
}

bool LeerArchivo(const QString& ruta, QByteArray* bytes, QString* error) {
  QFile archivo(ruta);
  if (!archivo.open(QIODevice::ReadOnly)) {
    *error = ruta + u": "_s + archivo.errorString();
    return false;
  }
  *bytes = archivo.readAll();
  return true;
}

// The certificate and key when both were chosen now; a range changed without them keeps what
// is stored, so it can be changed on a workstation that lacks the .cer.
bool GuardarMaterial(Connection& c, FamiliaFolios familia, const RangoFolios& r,
                     const MaterialNuevo& nuevo, QString* error) {
  const int documento = DatosDe(familia).documento;
  if (EsSellado(r.esquema) && !nuevo.certificado.isEmpty() && !nuevo.llave.isEmpty()) {
    QByteArray certificado, llave;
    if (!LeerArchivo(nuevo.certificado, &certificado, error) ||
        !LeerArchivo(nuevo.llave, &llave, error)) {
      return false;
    }
    return GuardarLado(
        c, u"certificados"_s, documento, r.numero,
        {{u"certificado"_s, certificado}, {u"llave"_s, llave}, {u"password"_s, r.password}}, error);
  }
  if (r.esquema != Esquema::kCbb) return true;
  if (nuevo.cbb.isEmpty()) {
    return c.Run(u"delete from cbb where documento = ? and numero = ?"_s, {documento, r.numero},
                 error);
  }
  return GuardarLado(c, u"cbb"_s, documento, r.numero, {{u"cbb"_s, nuevo.cbb}}, error);
}

Outcome ErrorAlGuardar(Connection& c, const QString& error) {
  if (!error.isEmpty()) return Outcome::Stop(error);
  return Outcome::Stop(!c.error().isEmpty() ? c.error() : c.db().lastError().text());
}

}  // namespace

Outcome GuardarRango(const Session& session, FamiliaFolios familia, bool alta, RangoFolios* rango,
                     const MaterialNuevo& nuevo) {
  const QString derechos = QString::fromLatin1(DatosDe(familia).derechos);
  if (Outcome permiso = mFunciones::TienePermiso(session, derechos, alta ? u"A"_s : u"C"_s);
      !permiso) {
    return permiso;
  }
  if (alta) {
    if (Outcome serie = RevisarSerie(session, familia, rango->serie, rango->esquema); !serie) {
      return serie;
    }
  }
  if (Outcome revision = RevisarRango(*rango); !revision) return revision;
  Connection c(session.Cadena);
  if (!c.ok()) return Outcome::Stop(c.error());
  Transaction t(c);
  if (!t.ok()) return Outcome::Stop(t.error());
  const QString tabla = Tabla(familia);
  QVariantMap fila;
  if (alta) fila = mFunciones::InicializarRegistro(tabla);
  ColumnasDelEsquema(*rango, c.sql(), &fila);
  ColumnasComunes(*rango, familia, &fila);
  QString error;
  const bool escrito =
      alta ? mFunciones::InsertarConNumero(c, tabla, u"numero"_s, fila, &rango->numero, &error)
           : Actualizar(c, tabla, fila, u"numero = ?"_s, {rango->numero}, &error);
  if (!escrito || !GuardarMaterial(c, familia, *rango, nuevo, &error) || !t.Commit()) {
    return ErrorAlGuardar(c, error);
  }
  return Outcome::Ok();
}

Outcome LeerRango(const Session& session, FamiliaFolios familia, qint32 numero, RangoFolios* rango,
                  QByteArray* cbb) {
  Connection c(session.Cadena);
  if (!c.ok()) return Outcome::Stop(c.error());
  QSqlQuery q = c.Exec(u"select * from "_s + dialect::Name(Tabla(familia)) + u" where numero = ?"_s,
                       {numero});
  if (!q.next()) return Outcome::Stop(QueryError(q));
  auto texto = [&q](const char* columna) { return q.value(QLatin1String(columna)).toString(); };
  RangoFolios& r = *rango;
  r = RangoFolios{};
  r.numero = numero;
  r.serie = texto("serie");
  EsquemaDeTexto(texto("esquema"), &r.esquema);
  r.folio_inicial = texto("folioinicial");
  r.folio_final = texto("foliofinal");
  r.regimen_fiscal = texto("regimenfiscal");
  r.no_aprobacion = texto("noaprobacion");
  const qint32 ano = q.value(u"anoaprobacion"_s).toInt();
  r.ano_aprobacion = ano > 0 ? QString::number(ano) : QString();
  r.archivo_certificado = texto("archivocertificado");
  r.archivo_llave = texto("archivollave");
  r.no_certificado = texto("nocertificado");
  r.valido_desde = dialect::ReadDate(q.value(u"validodesde"_s));
  r.valido_hasta = dialect::ReadDate(q.value(u"validohasta"_s));
  r.domicilio = texto("domicilio");
  r.leyendas = {texto("leyenda1"), texto("leyenda2"), texto("leyenda3")};
  if (DatosDe(familia).pagare) r.pagare = texto("pagare");
  r.imprimir_logotipo = texto("imprimirlogotipo") == u"S"_s;
  r.ubicar_logotipo = IndiceDeLista(texto("ubicarlogotipo"), ItemsUbicarLogoTipo());
  r.alinear_empresa = IndiceDeLista(texto("alinearempresa"), ItemsAlinearEmpresa());
  r.alinear_logotipo = IndiceDeLista(texto("alinearlogotipo"), ItemsAlinearLogotipo());
  r.status = texto("status");
  cbb->clear();
  if (r.esquema == Esquema::kCbb) {
    *cbb = c.Scalar(u"select cbb from cbb where documento = ? and numero = ?"_s,
                    {DatosDe(familia).documento, numero})
               .toByteArray();
  }
  return Outcome::Ok();
}

std::vector<Outcome> RestaurarMaterial(const Session& session, FamiliaFolios familia,
                                       RangoFolios* rango) {
  std::vector<Outcome> avisos;
  if (!EsSellado(rango->esquema)) return avisos;
  MaterialSellado material;
  {
    Connection c(session.Cadena);
    if (!c.ok()) return {Outcome::Stop(c.error())};
    material = LeerMaterial(c, familia, rango->numero);
  }
  if (material.certificado.isEmpty()) {
    avisos.push_back(Outcome::Refuse(u"Se requiere cargar un certificado (.cer)"_s));
  }
  if (material.llave.isEmpty()) {
    avisos.push_back(Outcome::Refuse(u"Se requiere cargar un archivo llave (.key)"_s));
  }
  if (!session.CarpetaCer.isEmpty() && QDir(session.CarpetaCer).exists()) {
    const Outcome restaurado = RestaurarArchivos(material, session.CarpetaCer,
                                                 rango->archivo_certificado, rango->archivo_llave);
    if (!restaurado) avisos.push_back(restaurado);
  }
  if (material.existe) rango->password = material.password;
  return avisos;
}

Outcome Predeterminar(Session& session, FamiliaFolios familia, qint32 numero) {
  if (Outcome permiso =
          mFunciones::TienePermiso(session, QString::fromLatin1(DatosDe(familia).derechos), u"C"_s);
      !permiso) {
    return permiso;
  }
  Connection c(session.Cadena);
  if (!c.ok()) return Outcome::Stop(c.error());
  const QString tabla = dialect::Name(Tabla(familia));
  Transaction t(c);
  if (!t.ok()) return Outcome::Stop(t.error());
  QString error;
  // A number no row holds would leave the table without a default: nothing changes.
  QSqlQuery q = c.Exec(u"select count(*) from "_s + tabla + u" where numero = ?"_s, {numero});
  if (!q.next()) return Outcome::Stop(QueryError(q));
  if (q.value(0).toInt() == 0) return Outcome{false, {}, MessageIcon::kNone, {}};
  if (!c.Run(u"update "_s + tabla + u" set predeterminar = ''"_s, {}, &error) ||
      !c.Run(u"update "_s + tabla + u" set predeterminar = '+' where numero = ?"_s, {numero},
             &error) ||
      !t.Commit()) {
    return ErrorAlGuardar(c, error);
  }
  (familia == FamiliaFolios::kFacturas ? session.FolioFacturas : session.FolioNotas) = numero;
  return Outcome::Ok();
}

void VaciarTemporales(const Session& session) {
  if (session.CarpetaTmp.isEmpty()) return;
  QDir carpeta(session.CarpetaTmp);
  if (!carpeta.exists()) return;
  for (const QString& archivo : carpeta.entryList(QDir::Files | QDir::Hidden)) {
    carpeta.remove(archivo);
  }
}

}  // namespace ventarix::edocs
