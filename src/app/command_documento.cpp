// `ventarix documento guardar`: documents fed from a web store, a spreadsheet or a script, each
// saved by the same routine as the capture screen, with every check.
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>

#include "app/commands.h"
#include "app/empresa_abierta.h"
#include "core/schema.h"
#include "documents/captura.h"
#include "inventory/familias_inventario.h"
#include "purchasing/familia_compras.h"
#include "purchasing/familias_proveedor.h"
#include "sales/facturar_remisiones.h"
#include "sales/familias_ventas.h"

namespace ventarix::app {

namespace {

using namespace Qt::StringLiterals;

int Uso() {
  PrintError(u"Uso: ventarix documento guardar --empresa RUTA [--usuario NOMBRE] ARCHIVO|-"_s);
  return kExitUsage;
}

bool EsColumna(const QString& tabla, const QString& columna) {
  const schema::Table* t = schema::FindTable(tabla);
  if (t == nullptr) return false;
  for (const schema::Column& c : t->columns) {
    if (QString::fromUtf8(c.name) == columna) return true;
  }
  return false;
}

QVariant Valor(const QJsonValue& v) {
  if (v.isDouble()) return v.toDouble();
  if (v.isBool()) return v.toBool() ? u"S"_s : u"N"_s;
  if (v.isNull()) return {};
  return v.toString();
}

// A credit note's row asks for the prompt-payment discount of its invoice.
bool EsMarcaDePartida(const QString& tabla, const QString& miembro) {
  return tabla == u"notas cliente"_s && miembro.toLower() == u"dppp"_s;
}

// A JSON object as a document of its family; *error names what does not belong. An invoice
// may name the delivery notes it invoices in `remisiones`.
bool Leer(const QJsonObject& objeto, const captura::FamiliaCaptura** familia,
          captura::Documento* documento, QStringList* remisiones, QString* error) {
  const QString tabla = objeto.value(u"familia"_s).toString();
  *familia = ventas::FamiliaDeTabla(tabla);
  if (*familia == nullptr) *familia = compras::FamiliaDeTabla(tabla);
  if (*familia == nullptr) *familia = compras::FamiliaDeProveedor(tabla);
  if (*familia == nullptr) *familia = inventario::FamiliaDeTabla(tabla);
  if (*familia == nullptr) {
    *error = u"Familia desconocida: \""_s + tabla +
             u"\" (remisiones, cotizaciones, pedidos, cxc, facturas, notas cliente, compras, "
             u"cxp, ordenes de compra, notas proveedor, ajustes de inventario, traspasos, "
             u"produccion)"_s;
    return false;
  }
  const QString detalles = tabla + u" detalles"_s;
  for (auto it = objeto.begin(); it != objeto.end(); ++it) {
    const QString nombre = it.key().toLower();
    if (nombre == u"familia"_s) continue;
    if (nombre == u"partidas"_s) {
      if (!it->isArray()) {
        *error = u"\"partidas\" debe ser una lista de renglones"_s;
        return false;
      }
      for (const QJsonValue& renglon : it->toArray()) {
        if (!renglon.isObject()) {
          *error = u"Cada partida debe ser un objeto"_s;
          return false;
        }
        QVariantMap partida;
        const QJsonObject r = renglon.toObject();
        for (auto c = r.begin(); c != r.end(); ++c) {
          if (!EsColumna(detalles, c.key().toLower()) && !EsMarcaDePartida(tabla, c.key())) {
            *error = u"Columna desconocida en las partidas de "_s + tabla + u": "_s + c.key();
            return false;
          }
          partida.insert(c.key().toLower(), Valor(*c));
        }
        documento->partidas.push_back(partida);
      }
      continue;
    }
    if (nombre == u"remisiones"_s && tabla == u"facturas"_s) {
      for (const QJsonValue& r : it->toArray()) remisiones->append(r.toString());
      continue;
    }
    if (!EsColumna(tabla, nombre)) {
      *error = u"Columna desconocida en "_s + tabla + u": "_s + it.key();
      return false;
    }
    documento->encabezado.insert(nombre, Valor(*it));
  }
  return true;
}

// The invoice of the delivery notes named: header of the first, rows of all; what the
// document says itself stays.
bool DeRemisiones(const Session& session, const QStringList& remisiones,
                  captura::Documento* documento, QString* error) {
  if (remisiones.isEmpty()) return true;
  Connection c(session.Cadena, Connection::Acceso::kLectura);
  captura::Documento factura;
  if (const Outcome o = ventas::DocumentoDeRemisiones(c, remisiones, &factura); !o) {
    *error = o.message;
    return false;
  }
  factura.encabezado.insert(documento->encabezado);
  factura.encabezado.insert(u"depto"_s, u"PRODUCTOS"_s);
  documento->encabezado = factura.encabezado;
  documento->partidas = factura.partidas;
  return true;
}

QByteArray Contenido(const QString& archivo, QString* error) {
  QFile file;
  const bool abierto = archivo == u"-"_s
                           ? file.open(stdin, QIODevice::ReadOnly)
                           : (file.setFileName(archivo), file.open(QIODevice::ReadOnly));
  if (!abierto) {
    *error = u"No se puede leer "_s + archivo + u": "_s + file.errorString();
    return {};
  }
  return file.readAll();
}

int Guardar(const QStringList& args) {
  const QString path = Opcion(args, u"--empresa"_s);
  const QStringList palabras = SinOpciones(args, {u"--empresa"_s, u"--usuario"_s});
  if (path.isEmpty() || palabras.size() != 2) return Uso();
  QString error;
  const QByteArray contenido = Contenido(palabras[1], &error);
  if (!error.isEmpty()) {
    PrintError(error);
    return kExitFailed;
  }
  QJsonParseError json;
  const QJsonDocument leido = QJsonDocument::fromJson(contenido, &json);
  if (json.error != QJsonParseError::NoError || (!leido.isObject() && !leido.isArray())) {
    PrintError(u"El archivo no es un documento JSON (un objeto o una lista de objetos): "_s +
               json.errorString());
    return kExitFailed;
  }
  const QJsonArray documentos = leido.isArray() ? leido.array() : QJsonArray{leido.object()};
  Session session;
  QString usuario = Opcion(args, u"--usuario"_s);
  if (usuario.isEmpty()) usuario = u"ADMINISTRADOR"_s;
  if (!AbrirEmpresa(path, usuario, session, &error)) {
    PrintError(error);
    return kExitFailed;
  }
  for (qsizetype i = 0; i < documentos.size(); ++i) {
    const captura::FamiliaCaptura* familia = nullptr;
    captura::Documento documento;
    QStringList remisiones;
    if (!documentos[i].isObject() ||
        !Leer(documentos[i].toObject(), &familia, &documento, &remisiones, &error) ||
        !DeRemisiones(session, remisiones, &documento, &error)) {
      PrintError(u"Documento %1: "_s.arg(i + 1) + (error.isEmpty() ? u"no es un objeto"_s : error));
      return kExitFailed;
    }
    const captura::Guardado guardado = captura::GuardarDocumento(session, *familia, documento);
    if (!guardado.outcome) {
      PrintError(u"Documento %1: "_s.arg(i + 1) + guardado.outcome.message);
      return kExitFailed;
    }
    Print(guardado.llave);
  }
  return kExitOk;
}

}  // namespace

int RunDocumento(const QStringList& args) {
  const QString accion = args.value(0);
  if (accion == u"guardar"_s) return Guardar(args);
  if (EsAccionDeBaja(accion)) return RunDocumentoBaja(args);
  if (!accion.isEmpty()) PrintError(u"Acción desconocida: documento "_s + accion);
  return Uso();
}

}  // namespace ventarix::app
