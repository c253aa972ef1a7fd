#include "core/ayuda.h"

#include <QLocale>

#include "core/ayuda_peticiones.h"
#include "core/browse_filter.h"
#include "core/dialect.h"

namespace ventarix::ayuda {

const QStringList& Palabras() {
  static const QStringList kPalabras{
      QStringLiteral("CLIENTES"),
      QStringLiteral("AGENTES"),
      QStringLiteral("AGENTES TPV"),
      QStringLiteral("PROVEEDORES"),
      QStringLiteral("MARCAS"),
      QStringLiteral("LINEAS"),
      QStringLiteral("UBICACIONES"),
      QStringLiteral("PRODUCTOS"),
      QStringLiteral("PRODUCTOS PRECIOS"),
      QStringLiteral("PRODUCTOS 2"),
      QStringLiteral("PRODUCTOS ALMACENES"),
      QStringLiteral("PRODUCCION"),
      QStringLiteral("PRODUCTOS TPV X PRODUCTO"),
      QStringLiteral("PRODUCTOS TPV X CODIGO"),
      QStringLiteral("REMISIONES TPV 1"),
      QStringLiteral("REMISIONES TPV 2"),
      QStringLiteral("REMISIONES TPV 3"),
      QStringLiteral("FACTURAS CLIENTE"),
      QStringLiteral("FACTURAS CLIENTE PRODUCTOS"),
      QStringLiteral("FACTURAS PROVEEDOR"),
      QStringLiteral("FACTURAS PROVEEDOR PRODUCTOS"),
      QStringLiteral("ORDENESCOMPRA"),
      QStringLiteral("COTIZACIONES"),
      QStringLiteral("PEDIDOS"),
      QStringLiteral("REPORTES"),
      QStringLiteral("SERIES"),
      QStringLiteral("FOLIOS FACTURAS"),
      QStringLiteral("FOLIOS NOTAS"),
      QStringLiteral("SERIES REGISTRADAS FACTURAS"),
      QStringLiteral("SERIES REGISTRADAS REMISIONES"),
      QStringLiteral("BANCOS"),
      QStringLiteral("CATEGORIAS"),
      QStringLiteral("PERIODOS"),
      QStringLiteral("METODOS"),
      QStringLiteral("USUARIOS"),
  };
  return kPalabras;
}

std::optional<PeticionAyuda> Peticion(const Session& session, const QString& palabra,
                                      const ParametrosAyuda& parametros) {
  const QString clave = palabra.trimmed().toUpper();
  std::optional<PeticionAyuda> peticion = detalle::PeticionCatalogo(session, clave, parametros);
  if (!peticion) peticion = detalle::PeticionProducto(session, clave, parametros);
  if (!peticion) peticion = detalle::PeticionDocumento(session, clave, parametros);
  if (peticion) Componer(*peticion);
  return peticion;
}

const BusquedaAyuda* BusquedaDeTecla(const PeticionAyuda& peticion, int tecla) {
  for (const BusquedaAyuda& busqueda : peticion.busquedas) {
    if (busqueda.tecla == tecla) return &busqueda;
  }
  return nullptr;
}

mBrowse::Condicion BusquedaEnAyuda(Engine engine, const BusquedaAyuda& busqueda,
                                   const QString& respuesta) {
  const QString texto = respuesta.trimmed();
  if (texto == QLatin1String("*")) return {};
  if (busqueda.igual) return mBrowse::IgualAClave(busqueda.columna, Numero(texto));
  return mBrowse::Contiene(engine, busqueda.columna, texto);
}

PeticionAyuda Buscar(PeticionAyuda peticion, const mBrowse::Condicion& condicion) {
  peticion.restriccion = condicion;
  Componer(peticion);
  return peticion;
}

void Componer(PeticionAyuda& peticion) {
  QStringList condiciones;
  if (!peticion.fija.isEmpty()) condiciones << peticion.fija;
  if (!peticion.restriccion.vacia()) condiciones << peticion.restriccion.texto;
  peticion.sentencia = peticion.seleccion;
  if (!condiciones.isEmpty()) {
    peticion.sentencia += QStringLiteral(" where ") + condiciones.join(QStringLiteral(" and "));
  }
  peticion.sentencia += peticion.cola;
  peticion.valores = peticion.valores_fijos;
  peticion.valores += peticion.restriccion.valores;
}

QString Formatear(const QVariant& valor, const QString& formato) {
  if (valor.isNull()) return {};
  if (formato.startsWith(QLatin1Char('#')) || formato.startsWith(QLatin1Char('0'))) {
    const qsizetype punto = formato.indexOf(QLatin1Char('.'));
    const int decimales = punto < 0 ? 0 : static_cast<int>(formato.size() - punto - 1);
    QLocale locale = QLocale::c();
    locale.setNumberOptions(formato.contains(QLatin1Char(',')) ? QLocale::DefaultNumberOptions
                                                               : QLocale::OmitGroupSeparator);
    return locale.toString(valor.toDouble(), 'f', decimales);
  }
  if (formato.startsWith(QLatin1String("dd"))) {
    const QDateTime fecha = dialect::ReadDate(valor);
    return fecha.isValid() ? fecha.toString(formato) : valor.toString();
  }
  return valor.toString();
}

double Numero(const QString& texto) {
  const QString limpio = texto.trimmed();
  const bool negativo = limpio.startsWith(QLatin1Char('-'));
  QString cifras;
  bool punto = false;
  for (const QChar c : limpio) {
    if (c >= QLatin1Char('0') && c <= QLatin1Char('9')) {
      cifras += c;
    } else if (c == QLatin1Char('.') && !punto) {
      cifras += c;
      punto = true;
    }
  }
  const double numero = cifras.toDouble();
  return negativo ? -numero : numero;
}

namespace detalle {

namespace {
const int kIzquierda = (Qt::AlignLeft | Qt::AlignVCenter).toInt();
const int kDerecha = (Qt::AlignRight | Qt::AlignVCenter).toInt();
const int kTwipsPorPixel = 15;
}  // namespace

ColumnaAyuda Texto(const QString& titulo, int twips) {
  return {titulo, twips / kTwipsPorPixel, kIzquierda, {}};
}

ColumnaAyuda Cifra(const QString& titulo, int twips, const QString& formato) {
  return {titulo, twips / kTwipsPorPixel, kDerecha, formato};
}

ColumnaAyuda Fecha(const QString& titulo) {
  return {titulo, 1300 / kTwipsPorPixel, kIzquierda, QString::fromLatin1(kFecha)};
}

PeticionAyuda Nueva(const QString& titulo, const QString& seleccion, const QString& cola) {
  PeticionAyuda peticion;
  peticion.titulo = titulo;
  peticion.seleccion = seleccion;
  peticion.cola = cola;
  return peticion;
}

std::vector<BusquedaAyuda> BusquedasDeProducto(const QString& alias) {
  return {
      {2, alias + QStringLiteral("codigo"), QStringLiteral("Código a buscar"), false},
      {3, alias + QStringLiteral("marca"), QStringLiteral("Marca a buscar"), true},
      {4, alias + QStringLiteral("producto"), QStringLiteral("Nombre del Producto a buscar"),
       false},
  };
}

mBrowse::Condicion PrimeraMarca(const Session& session, const QString& alias) {
  if (!session.MuchosProductos) return {};
  return {alias + QStringLiteral("marca = 1"), {}};
}

}  // namespace detalle

}  // namespace ventarix::ayuda
