// Reading a supplier's CFD or CFDi into the rows of a purchase.
#include "purchasing/importar_cfdi.h"

#include <QFile>
#include <QFileInfo>
#include <QSqlQuery>
#include <QXmlStreamReader>

#include "core/mFunciones.h"
#include "purchasing/familia_compras.h"

namespace ventarix::compras {

namespace {

using namespace Qt::StringLiterals;

bool EsEspacioDelSat(QStringView espacio) {
  return espacio == u"http://www.sat.gob.mx/cfd/2"_s || espacio == u"http://www.sat.gob.mx/cfd/3"_s ||
         espacio == u"http://www.sat.gob.mx/cfd/4"_s;
}

// 3.3 and 4.0 spell their attributes with a capital; the earlier versions in lower case.
QString Atributo(const QXmlStreamAttributes& a, bool mayuscula, const QString& nombre) {
  QString n = nombre;
  if (mayuscula) n[0] = n[0].toUpper();
  return a.value(n).toString().trimmed();
}

FacturaDeProveedor Rechazo(const QString& archivo, const QString& por) {
  FacturaDeProveedor f;
  f.outcome = Outcome::Warning(u"El archivo no es un CFD o CFDi válido:\n\n"_s + archivo +
                               (por.isEmpty() ? QString() : u"\n\n"_s + por));
  return f;
}

}  // namespace

FacturaDeProveedor LeerFacturaDeProveedor(const QString& archivo) {
  QFile file(archivo);
  if (!file.open(QIODevice::ReadOnly)) {
    FacturaDeProveedor f;
    f.outcome = Outcome::Stop(u"No se pudo abrir el archivo "_s + archivo);
    return f;
  }
  QXmlStreamReader xml(&file);  // resolves no external entity and fetches nothing
  FacturaDeProveedor f;
  bool mayuscula = false;
  QStringList ruta;  // local names from the root to the current element
  while (!xml.atEnd()) {
    const QXmlStreamReader::TokenType token = xml.readNext();
    if (token == QXmlStreamReader::EndElement) {
      ruta.removeLast();
      continue;
    }
    if (token != QXmlStreamReader::StartElement) continue;
    const QXmlStreamAttributes a = xml.attributes();
    if (ruta.isEmpty()) {
      if (xml.name() != u"Comprobante"_s || !EsEspacioDelSat(xml.namespaceUri())) {
        return Rechazo(archivo, {});
      }
      mayuscula = a.hasAttribute(u"Version"_s);
      f.version = mayuscula ? a.value(u"Version"_s).toString() : a.value(u"version"_s).toString();
      f.serie = Atributo(a, mayuscula, u"serie"_s);
      f.folio = Atributo(a, mayuscula, u"folio"_s);
    } else if (xml.name() == u"Concepto"_s && ruta.last() == u"Conceptos"_s && ruta.size() == 2) {
      f.partidas.push_back(
          {{u"codigo"_s, Atributo(a, mayuscula, u"noIdentificacion"_s).toUpper()},
           {u"cantidad"_s, Atributo(a, mayuscula, u"cantidad"_s).toDouble()},
           {u"precio"_s, Atributo(a, mayuscula, u"valorUnitario"_s).toDouble()}});
    }
    ruta.append(xml.name().toString());
  }
  if (xml.hasError()) return Rechazo(archivo, xml.errorString());
  if (f.version.isEmpty()) return Rechazo(archivo, {});
  if (f.partidas.empty()) {
    f.outcome = Outcome::Warning(u"El archivo no tiene conceptos:\n\n"_s + archivo);
  }
  return f;
}

captura::Guardado ImportarCompra(const Session& session, Connection& c, const QString& archivo,
                                 captura::Documento documento) {
  const FacturaDeProveedor leida = LeerFacturaDeProveedor(archivo);
  if (!leida.outcome) return {leida.outcome, {}};
  for (const QVariantMap& p : leida.partidas) {
    const QString codigo = p.value(u"codigo"_s).toString();
    const mFunciones::SqlText sql = mFunciones::SqlProducto(codigo);
    if (!c.Exec(sql.text, sql.values).next()) {
      return {Outcome::Warning(u"Este código no existe en productos\n\n"_s + codigo, u"Fg1"_s), {}};
    }
  }
  documento.encabezado.insert(u"factura"_s, leida.Factura());
  if (documento.encabezado.value(u"obs"_s).toString().isEmpty()) {
    documento.encabezado.insert(u"obs"_s, QFileInfo(archivo).fileName().toUpper());
  }
  documento.partidas = leida.partidas;
  return captura::GuardarDocumento(session, c, Compras(), std::move(documento));
}

captura::Guardado ImportarCompra(Session& session, const QString& archivo, qint32 proveedor,
                                 const QString& movimiento, const QString& tipo,
                                 const QString& obs) {
  Connection c(session.Cadena);
  if (!c.ok()) return {Outcome::Stop(c.error()), {}};
  Transaction t(c);
  if (!t.ok()) return {Outcome::Stop(t.error()), {}};
  captura::Documento d;
  d.encabezado = {{u"proveedor"_s, proveedor},
                  {u"tipo"_s, tipo},
                  {u"movimiento"_s, movimiento.toUpper()},
                  {u"obs"_s, obs}};
  const captura::Guardado g = ImportarCompra(session, c, archivo, std::move(d));
  if (!g.outcome) return g;
  if (!t.Commit()) return {Outcome::Stop(t.error()), {}};
  session.CompraActual = g.llave;
  return g;
}

}  // namespace ventarix::compras
