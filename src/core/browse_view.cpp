#include "core/browse_view.h"

namespace ventarix::mBrowse {

namespace {

constexpr int kCamposPorLinea = 8;

}  // namespace

TipoColumna TipoDe(int tipo_datos) {
  switch (tipo_datos) {
    case kTipoTexto:
    case kTipoMemo:
    case 129:  // fixed-length text
    case 130:
    case 200:
    case 201:
      return TipoColumna::kTexto;
    case kTipoEntero16:
    case kTipoEntero32:
    case 4:  // single
    case kTipoDoble:
    case 6:   // currency
    case 11:  // yes/no
    case 14:  // decimal
    case 16:
    case 17:
    case 20:   // big integer
    case 131:  // numeric
      return TipoColumna::kNumero;
    case 7:  // date
    case 133:
    case kTipoFecha:
      return TipoColumna::kFecha;
    default:
      return TipoColumna::kOtro;
  }
}

std::vector<ColumnaVista> LeerCadena(const QString& cadena) {
  std::vector<ColumnaVista> columnas;
  QString texto = cadena;
  texto.replace(QStringLiteral("\r\n"), QStringLiteral("\r")).replace(u'\n', u'\r');
  for (const QString& linea : texto.split(u'\r', Qt::SkipEmptyParts)) {
    const QStringList campos = linea.split(u'|');
    if (campos.value(0).trimmed().isEmpty()) continue;
    ColumnaVista columna;
    columna.nombre = campos.value(0).trimmed();
    bool ok = false;
    if (const int tipo = campos.value(1).toInt(&ok); ok) columna.tipo = tipo;
    if (const int ancho = campos.value(2).toInt(&ok); ok) columna.ancho = ancho;
    columna.alineacion = campos.value(3).toInt();
    columna.oculta = campos.value(4).toInt() != 0;
    columna.formato = campos.value(5);
    for (int i = 6; i < qMin<int>(campos.size(), kCamposPorLinea); ++i) {
      columna.opciones << campos.at(i);
    }
    columnas.push_back(columna);
  }
  return columnas;
}

QString EscribirCadena(const std::vector<ColumnaVista>& columnas) {
  QString cadena;
  for (const ColumnaVista& c : columnas) {
    QStringList campos = {c.nombre,
                          QString::number(c.tipo),
                          QString::number(c.ancho),
                          QString::number(c.alineacion),
                          c.oculta ? QStringLiteral("1") : QStringLiteral("0"),
                          c.formato};
    campos << c.opciones.mid(0, kCamposPorLinea - campos.size());
    cadena += campos.join(u'|') + u'\r';
  }
  return cadena;
}

}  // namespace ventarix::mBrowse
