#include "core/ui/browse_model.h"

#include <algorithm>
#include <optional>

#include <QColor>
#include <QLocale>
#include <QTimer>

#include "core/browse_titulos.h"
#include "core/dialect.h"

namespace ventarix {

namespace {

const std::array<const char*, 12> kMeses = {"ene", "feb", "mar", "abr", "may", "jun",
                                            "jul", "ago", "sep", "oct", "nov", "dic"};

QString Fecha(const QDateTime& fecha, const QString& formato) {
  if (!fecha.isValid()) return {};
  const QDate dia = fecha.date();
  const QString mes = QString::fromLatin1(kMeses[dia.month() - 1]);
  if (formato.startsWith(QLatin1String("hh"))) return fecha.toString(QStringLiteral("hh:mm:ss ap"));
  if (formato == QLatin1String("dd/mmm/yy")) {
    return dia.toString(QStringLiteral("dd")) + u'/' + mes + u'/' +
           dia.toString(QStringLiteral("yy"));
  }
  return dia.toString(QStringLiteral("dd")) + u' ' + mes + u' ' + QString::number(dia.year());
}

// "#,##0.00", "#,##0.0000", "0": grouping when there is a comma, decimals after the point.
QString Numero(double valor, const QString& formato) {
  QLocale locale = QLocale::c();
  if (formato.contains(u',')) locale.setNumberOptions(QLocale::DefaultNumberOptions);
  const qsizetype punto = formato.indexOf(u'.');
  const int decimales = punto < 0 ? 0 : static_cast<int>(formato.size() - punto - 1);
  return locale.toString(valor, 'f', decimales);
}

}  // namespace

ModeloVista::ModeloVista(const Session& session, QObject* parent, int pagina)
    : QAbstractTableModel(parent), session_(session), pagina_(pagina) {
  lector_ = new QTimer(this);
  lector_->setSingleShot(true);
  lector_->setInterval(0);
  connect(lector_, &QTimer::timeout, this, &ModeloVista::LeerPedidas);
}

Outcome ModeloVista::Cargar(const mBrowse::Consulta& consulta,
                            const std::vector<mBrowse::ColumnaVista>& columnas) {
  beginResetModel();
  consulta_ = consulta;
  columnas_ = columnas;
  nombres_.clear();
  for (const mBrowse::ColumnaVista& c : columnas_) nombres_ << c.nombre;
  filas_.clear();
  filas_totales_ = 0;
  limite_ = 0;
  leidas_ = 0;
  pedidas_.clear();
  Outcome resultado;
  // One connection counts the rows and reads the first page.
  Connection lectura(session_.Cadena, Connection::Acceso::kVista);
  QString error;
  const std::optional<qint64> filas =
      lectura.ok() ? mBrowse::ContarFilas(lectura, consulta_, &error) : std::nullopt;
  if (!filas) {
    resultado = Outcome::Stop(lectura.ok() ? error : lectura.error());
  } else {
    filas_totales_ = *filas;
    limite_ = qMin(*filas, mBrowse::kLimiteFilas);
  }
  endResetModel();
  if (resultado && canFetchMore()) Anexar(lectura, pagina_);
  return resultado;
}

int ModeloVista::ColumnaDe(const QString& nombre) const {
  for (int i = 0; i < nombres_.size(); ++i) {
    if (nombres_.at(i).compare(nombre, Qt::CaseInsensitive) == 0) return i;
  }
  return -1;
}

QVariant ModeloVista::Valor(int fila, int columna) const {
  if (fila < 0 || fila >= static_cast<int>(filas_.size())) return {};
  return filas_[fila].value(columna);
}

bool ModeloVista::Leida(int fila) const {
  return fila >= 0 && fila < static_cast<int>(filas_.size()) && !filas_[fila].isEmpty();
}

void ModeloVista::AsegurarFila(int fila) {
  fila = static_cast<int>(qMin<qint64>(fila, limite_ - 1));
  if (fila < 0 || Leida(fila)) return;
  Connection lectura(session_.Cadena, Connection::Acceso::kVista);
  const int cargadas = static_cast<int>(filas_.size());
  if (fila < cargadas) return LeerBloque(lectura, fila);
  if (fila < cargadas + pagina_) return Anexar(lectura, pagina_);
  Completar();
  LeerBloque(lectura, fila);
}

void ModeloVista::IrAlFinal() { AsegurarFila(static_cast<int>(limite_) - 1); }

void ModeloVista::AsegurarFilas(int desde, int hasta) {
  hasta = qMin(hasta, rowCount() - 1);
  std::optional<Connection> lectura;
  for (int fila = qMax(0, desde); fila <= hasta; ++fila) {
    if (Leida(fila)) continue;
    if (!lectura) lectura.emplace(session_.Cadena, Connection::Acceso::kVista);
    LeerBloque(*lectura, fila);
  }
}

void ModeloVista::Completar() {
  const int cargadas = static_cast<int>(filas_.size());
  if (leyendo_ || cargadas >= limite_) return;
  // Whoever hears of the new rows may ask for more: nothing is fetched meanwhile.
  leyendo_ = true;
  beginInsertRows({}, cargadas, static_cast<int>(limite_) - 1);
  filas_.resize(limite_);
  endInsertRows();
  leyendo_ = false;
}

void ModeloVista::LeerBloque(Connection& lectura, int fila) {
  if (leyendo_ || Leida(fila) || fila >= static_cast<int>(filas_.size())) return;
  leyendo_ = true;
  // The run of unread rows around the row, [a, b), and the page of it to read, [s, e): from a
  // read row above, up to a read row below, or the page of the row itself.
  const int n = static_cast<int>(filas_.size());
  int a = fila;
  while (a > 0 && !Leida(a - 1)) --a;
  int b = fila + 1;
  while (b < n && !Leida(b)) ++b;
  int s = qMax(a, fila - fila % pagina_);
  if (fila - a < pagina_) s = a;
  if (b - fila <= pagina_) s = qMax(a, b - pagina_);
  const int e = qMin(b, s + pagina_);
  // By key after the row above, by key before the row below (backwards), or skipping rows
  // from whichever end is nearer.
  const bool total = mBrowse::OrdenTotal(consulta_);
  const qint64 tras = filas_totales_ - e;
  QVariantList vecina;
  qint64 desde = s;
  bool atras = false;
  if (s > 0 && Leida(s - 1)) {
    vecina = filas_[s - 1];
  } else if (total && (Leida(e) || tras < s)) {
    atras = true;
    desde = tras;
    if (Leida(e)) vecina = filas_[e];
  }
  mBrowse::Pagina pagina =
      lectura.ok() ? mBrowse::LeerPagina(lectura, consulta_, nombres_, vecina, desde, e - s, atras)
                   : mBrowse::Pagina{Outcome::Stop(lectura.error()), {}};
  if (!pagina.outcome) pagina.filas.clear();
  // Rows gone since the count show empty rather than being asked for again.
  const int leidas = qMin(static_cast<int>(pagina.filas.size()), e - s);
  const int primera = atras ? e - leidas : s;
  for (int i = s; i < e; ++i) {
    const int k = i - primera;
    filas_[i] = k >= 0 && k < leidas ? std::move(pagina.filas[k])
                                     : QVariantList(qMax(1, columnCount()), QVariant());
  }
  leidas_ += leidas;
  leyendo_ = false;
  emit dataChanged(index(s, 0), index(e - 1, columnCount() - 1));
  if (!pagina.outcome) emit Error(pagina.outcome.message);
}

void ModeloVista::LeerPedidas() {
  QList<int> filas = pedidas_.values();
  pedidas_.clear();
  std::sort(filas.begin(), filas.end());
  std::optional<Connection> lectura;
  for (int fila : filas) {
    if (fila >= rowCount() || Leida(fila)) continue;
    if (!lectura) lectura.emplace(session_.Cadena, Connection::Acceso::kVista);
    LeerBloque(*lectura, fila);
  }
}

int ModeloVista::ReemplazarFila(const QVariantList& valores) {
  const int llave = consulta_.llave.isEmpty() ? -1 : ColumnaDe(consulta_.llave.front());
  if (llave >= 0) {
    const int fila = BuscarFila(llave, valores.value(llave));
    if (fila >= 0) {
      filas_[fila] = valores;
      emit dataChanged(index(fila, 0), index(fila, columnCount() - 1));
      return fila;
    }
  }
  const int fila = static_cast<int>(filas_.size());
  beginInsertRows({}, fila, fila);
  filas_.push_back(valores);
  ++limite_;
  ++filas_totales_;
  endInsertRows();
  return fila;
}

void ModeloVista::QuitarFila(int fila) {
  if (fila < 0 || fila >= rowCount()) return;
  beginRemoveRows({}, fila, fila);
  filas_.erase(filas_.begin() + fila);
  --limite_;
  --filas_totales_;
  // The rows asked for below it moved up by one: they are asked for again when shown.
  pedidas_.clear();
  endRemoveRows();
}

int ModeloVista::BuscarFila(int columna, const QVariant& valor) const {
  const QString buscado = valor.toString();
  for (size_t i = 0; i < filas_.size(); ++i) {
    if (!filas_[i].isEmpty() && filas_[i].value(columna).toString() == buscado) {
      return static_cast<int>(i);
    }
  }
  return -1;
}

int ModeloVista::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(filas_.size());
}

int ModeloVista::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columnas_.size());
}

QString ModeloVista::Formatear(const QVariant& valor, const mBrowse::ColumnaVista& columna) const {
  if (valor.isNull()) return {};
  switch (mBrowse::TipoDe(columna.tipo)) {
    case mBrowse::TipoColumna::kNumero:
      if (columna.formato.isEmpty()) return valor.toString();
      return Numero(valor.toDouble(), columna.formato);
    case mBrowse::TipoColumna::kFecha:
      return Fecha(dialect::ReadDate(valor), columna.formato);
    default:
      return valor.toString();
  }
}

QVariant ModeloVista::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rowCount() || index.column() >= columnCount()) return {};
  const mBrowse::ColumnaVista& columna = columnas_[index.column()];
  if (filas_[index.row()].isEmpty() && (role == Qt::DisplayRole || role == Qt::EditRole)) {
    // Read with its page once the event loop turns; the grid repaints it then.
    pedidas_.insert(index.row());
    if (!lector_->isActive()) lector_->start();
    return {};
  }
  switch (role) {
    case Qt::DisplayRole:
      return Formatear(filas_[index.row()].value(index.column()), columna);
    case Qt::EditRole:
      return filas_[index.row()].value(index.column());
    case Qt::TextAlignmentRole:
      if (columna.alineacion == 1) return QVariant(Qt::AlignRight | Qt::AlignVCenter);
      if (columna.alineacion == 2) return QVariant(Qt::AlignCenter);
      return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
    default:
      return {};
  }
}

QVariant ModeloVista::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole) return {};
  if (orientation == Qt::Vertical) return section + 1;
  if (section < 0 || section >= columnCount()) return {};
  return mBrowse::TituloDe(columnas_[section]);
}

bool ModeloVista::canFetchMore(const QModelIndex& parent) const {
  return !parent.isValid() && static_cast<qint64>(filas_.size()) < limite_;
}

void ModeloVista::fetchMore(const QModelIndex& parent) {
  if (parent.isValid() || leyendo_ || !canFetchMore()) return;
  Connection lectura(session_.Cadena, Connection::Acceso::kVista);
  Anexar(lectura, pagina_);
}

void ModeloVista::Anexar(Connection& lectura, qint64 cuantas) {
  if (leyendo_ || !canFetchMore()) return;
  leyendo_ = true;
  const qint64 desde = static_cast<qint64>(filas_.size());
  const int n_pedidas = static_cast<int>(qMin<qint64>(cuantas, limite_ - desde));
  const QVariantList ultima = filas_.empty() ? QVariantList() : filas_.back();
  mBrowse::Pagina pagina =
      lectura.ok() ? mBrowse::LeerPagina(lectura, consulta_, nombres_, ultima, desde, n_pedidas)
                   : mBrowse::Pagina{Outcome::Stop(lectura.error()), {}};
  if (!pagina.outcome) {
    // Nothing more can be read: the grid keeps what it has.
    limite_ = desde;
    leyendo_ = false;
    emit Error(pagina.outcome.message);
    return;
  }
  if (pagina.filas.empty()) {
    limite_ = desde;
  } else {
    const int n = static_cast<int>(pagina.filas.size());
    beginInsertRows({}, static_cast<int>(desde), static_cast<int>(desde) + n - 1);
    for (QVariantList& fila : pagina.filas) filas_.push_back(std::move(fila));
    leidas_ += n;
    endInsertRows();
  }
  leyendo_ = false;
}

}  // namespace ventarix
