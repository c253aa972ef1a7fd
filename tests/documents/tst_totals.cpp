// Document totals as stored: rows rewritten with their rounded figures, headers holding the
// sums, the summary row of invoices and credit notes, on both engines.
#include <string_view>

#include <QRandomGenerator>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTest>

#include "core/dialect.h"
#include "documents/document_totals.h"
#include "documents/mSaldos.h"
#include "stored_figures.h"
#include "support/document_rows.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using testing::Diferencias;
using testing::InsertarFila;

namespace {

struct Row {
  QVariant cantidad, precio, dcto = 0.0, impuesto = 0.0, costo = 0.0, com = 0.0;
};

struct Family {
  const char* table;
  const char* key;
  bool cost;
};

const Family kFamilies[] = {
    {"facturas", "factura", true},        {"remisiones", "remision", true},
    {"cotizaciones", "cotizacion", true}, {"traspasos", "traspaso", true},
    {"pedidos", "pedido", false},         {"ordenes de compra", "orden", false},
    {"notas cliente", "nota", false},     {"compras", "compra", false},
    {"notas proveedor", "nota", false}};

// The family's total routine with the arguments a plain save passes.
Outcome Totalizar(Connection& c, const Session& s, const Family& f, const QString& k) {
  using namespace mSaldos;
  const std::string_view t = f.table;
  if (t == "facturas") return TotalizarFactura(c, s, k);
  if (t == "remisiones") return TotalizarRemision(c, k);
  if (t == "cotizaciones") return TotalizarCotizacion(c, k);
  if (t == "traspasos") return TotalizarTraspaso(c, k);
  if (t == "pedidos") return TotalizarPedido(c, k);
  if (t == "ordenes de compra") return TotalizarOrdenCompra(c, k);
  if (t == "notas cliente") return TotalizarNotaCliente(c, s, k);
  if (t == "compras") return TotalizarCompra(c, k);
  return TotalizarNotaProveedor(c, k);
}

QString T(const char* text) { return QString::fromUtf8(text); }

bool AddDocument(Connection& c, const QString& table, const QString& key_column, const QString& key,
                 const std::vector<Row>& rows, QVariantMap header = {}) {
  header[key_column] = key;
  if (!InsertarFila(c, table, header)) return false;
  const QString detail = table + u" detalles"_s;
  int item = 0;
  for (const Row& r : rows) {
    QVariantMap row = {{key_column, key},       {u"item"_s, ++item}, {u"cantidad"_s, r.cantidad},
                       {u"precio"_s, r.precio}, {u"dcto"_s, r.dcto}, {u"impuesto"_s, r.impuesto}};
    // Only the families that value their rows at cost have the cost and commission columns.
    for (const schema::Column& col : schema::FindTable(detail)->columns) {
      if (QLatin1String(col.name) == QLatin1String("costo")) row[u"costo"_s] = r.costo;
      if (QLatin1String(col.name) == QLatin1String("com")) row[u"com"_s] = r.com;
    }
    if (!InsertarFila(c, detail, row)) return false;
  }
  return true;
}

double Value(Connection& c, const QString& table, const QString& key_column, const QString& key,
             const QString& column) {
  return testing::Leer(c, table, key_column, key, column).toDouble();
}

int Count(Connection& c, const QString& table, const QString& key_column, const QString& key) {
  return c
      .Scalar(u"select count(*) from %1 where %2 = ?"_s.arg(dialect::Name(table),
                                                            dialect::Name(key_column)),
              {key})
      .toInt();
}

// Every figure of a table, in key and item order, as exact text.
QStringList Snapshot(Connection& c, const QString& table, const QString& key_column) {
  const bool detail = table.endsWith(QLatin1String(" detalles"));
  QSqlQuery q = c.Exec(u"select * from %1 order by %2%3"_s.arg(
      dialect::Name(table), dialect::Name(key_column), detail ? u", item"_s : QString()));
  QStringList out;
  while (q.next()) {
    QStringList fields;
    for (int i = 0; i < q.record().count(); ++i) {
      const QVariant v = q.value(i);
      fields << (v.metaType().id() == QMetaType::Double ? QString::number(v.toDouble(), 'g', 17)
                                                        : v.toString());
    }
    out << fields.join(QLatin1Char('|'));
  }
  return out;
}

}  // namespace

class TstTotals : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  void clerksInvoiceAndCreditNote();
  void rowsKeepOnlyTheirStatedPlaces();
  void everyFamilyWritesItsOwnHeader();
  void retentionsDeductionsAndAdjustments();
  void relatedDocumentsList();
  void randomDocumentsAreStableAndAddUp();
};

void TstTotals::clerksInvoiceAndCreditNote() {
  VENTARIX_COMPANY_CONNECTION(company, c);
  Session session = company.MakeSession();
  session.empresa.Set(u"impuesto"_s, 16);
  session.Tienda = 2;
  Transaction save(c);
  QVERIFY(
      AddDocument(c, u"facturas"_s, u"factura"_s, u"A-7"_s,
                  {{3, 10.00, 12.5, 16, 6, 5}, {2, 45.5, 0, 16, 30, 5}, {1.5, 0.125, 0, 0, 0, 0}}));
  const Outcome done =
      mSaldos::TotalizarFactura(c, session, u"A-7"_s, {1.5, 2.25, 0}, u"VENTA DEL DIA"_s,
                                QDateTime(QDate(2024, 3, 15), QTime(17, 45)));
  QVERIFY2(done.ok, qPrintable(done.message));
  QVERIFY(save.Commit());

  // Total: 136.1975 less 1.50 ISR and 2.25 IVA retained; commission 1.3125 -> 1.31 and 4.55;
  // profit 6.94 + 26.45 + 0.19.
  COMPARE_ROW(
      c, u"facturas"_s, u"factura"_s, u"A-7"_s,
      u"importe=121.1875|descuento=3.75|subtotal=117.4375|iva=18.76|total=132.4475|"
      u"costo=78.0|comision=5.86|utilidad=33.58|retencion isr $=1.5|retencion iva $=2.25"_s);

  // The single concept the invoice can be printed and stamped as.
  QCOMPARE(Count(c, u"facturas resumen"_s, u"factura"_s, u"A-7"_s), 1);
  QSqlQuery row = c.Exec(u"select * from \"facturas resumen\" where factura = ?"_s, {u"A-7"_s});
  QVERIFY(row.next());
  const QString diff =
      Diferencias(row,
                  u"codigo=CORTE|unidad=CORTE|descripcion=VENTA DEL DIA|cantidad=1.0|"
                  u"precio=121.1875|total=132.4475|impuesto=16.0|costo=78.0|"
                  u"costototal=78.0|tienda=2|item=1"_s);
  QVERIFY2(diff.isEmpty(), qPrintable(diff));
  QCOMPARE(dialect::ReadDate(row.value(u"fecha"_s)), QDateTime(QDate(2024, 3, 15), QTime(0, 0)));
  // Saving again rewrites the summary row, never doubles it.
  for (int i = 0; i < 2; ++i) {
    QVERIFY(mSaldos::TotalizarFactura(c, session, u"A-7"_s, {}, u"CORTE Z"_s,
                                      QDateTime(QDate(2024, 3, 15), QTime(17, 45)))
                .ok);
  }
  QCOMPARE(Count(c, u"facturas resumen"_s, u"factura"_s, u"A-7"_s), 1);

  // A credit note's summary the same: the clerk corrects the price and saves again.
  const QDateTime fecha(QDate(2024, 3, 15), QTime(9, 0));
  QVERIFY(AddDocument(c, u"notas cliente"_s, u"nota"_s, u"NC-1"_s, {{1, 100, 0, 16}}));
  QVERIFY(mSaldos::TotalizarNotaCliente(c, session, u"NC-1"_s, fecha, u"DEVOLUCION"_s).ok);
  QVERIFY(testing::Escribir(
      c, u"update \"notas cliente detalles\" set precio = 50 where nota = ?"_s, {u"NC-1"_s}));
  QVERIFY(mSaldos::TotalizarNotaCliente(c, session, u"NC-1"_s, fecha, u"DESCUENTO"_s).ok);
  // An empty text afterwards leaves the existing summary as it stands.
  QVERIFY(mSaldos::TotalizarNotaCliente(c, session, u"NC-1"_s, fecha, QString()).ok);
  QCOMPARE(Count(c, u"notas cliente resumen"_s, u"nota"_s, u"NC-1"_s), 1);
  COMPARE_ROW(c, u"notas cliente resumen"_s, u"nota"_s, u"NC-1"_s,
              u"codigo=NOTA|unidad=NA|descripcion=DESCUENTO|importe=50.0|total=58.0"_s);
}

void TstTotals::rowsKeepOnlyTheirStatedPlaces() {
  VENTARIX_COMPANY_CONNECTION(company, c);
  QVERIFY(AddDocument(c, u"remisiones"_s, u"remision"_s, u"R-1"_s,
                      {{2.123456789, 3.14159, 10.555, 16.004, 12.345, 2.5}}));
  QVERIFY(mSaldos::TotalizarRemision(c, u"R-1"_s).ok);
  // Unrounded: importe 6.671051851464, descuento 0.70446816, iva 0.954656, cost 26.20346...
  // with 12.34, commission 0.149165; profit 5.9666 - 26.2 - 0.15.
  COMPARE_ROW(c, u"remisiones detalles"_s, u"remision"_s, u"R-1"_s,
              u"cantidad=2.12345679|precio=3.1416|importe=6.6711|dcto=10.56|"
              u"descuento=0.7045|subtotal=5.9666|impuesto=16.0|iva=0.9547|total=6.9213|"
              u"costo=12.34|costototal=26.2|comision=0.15|utilidad=-20.38"_s);
}

void TstTotals::everyFamilyWritesItsOwnHeader() {
  VENTARIX_COMPANY_CONNECTION(company, c);
  const Session session = company.MakeSession();
  for (const Family& f : kFamilies) {
    const QString table = T(f.table);
    // A second document with the same rows stays as it was: only the key's header changes.
    QVERIFY(AddDocument(c, table, T(f.key), u"X-1"_s, {{3, 10.0, 12.5, 16, 6, 10}}));
    QVERIFY(AddDocument(c, table, T(f.key), u"X-2"_s, {{3, 10.0, 12.5, 16, 6, 10}}));
    const Outcome done = Totalizar(c, session, f, u"X-1"_s);
    QVERIFY2(done.ok, qPrintable(table + u": "_s + done.message));
    QString esperado = u"importe=30.0|descuento=3.75|subtotal=26.25|iva=4.2|total=30.45"_s;
    if (f.cost) esperado += u"|costo=18.0|comision=2.62|utilidad=5.63"_s;
    COMPARE_ROW(c, table, T(f.key), u"X-1"_s, esperado);
    QCOMPARE(Value(c, table, T(f.key), u"X-2"_s, u"total"_s), 0.0);
    QCOMPARE(Value(c, table + u" detalles"_s, T(f.key), u"X-1"_s, u"total"_s), 30.45);
  }
}

void TstTotals::retentionsDeductionsAndAdjustments() {
  VENTARIX_COMPANY_CONNECTION(company, c);
  const std::vector<Row> rows = {{3, 10.0, 12.5, 16}};
  QVERIFY(AddDocument(c, u"compras"_s, u"compra"_s, u"C-1"_s, rows));
  QVERIFY(mSaldos::TotalizarCompra(c, u"C-1"_s, 2.8).ok);
  COMPARE_ROW(c, u"compras"_s, u"compra"_s, u"C-1"_s, u"total=27.65|retencion=2.8"_s);

  // A supplier note's deduction lowers its total and is kept nowhere.
  QVERIFY(AddDocument(c, u"notas proveedor"_s, u"nota"_s, u"N-1"_s, rows, {{u"retencion"_s, 9.0}}));
  QVERIFY(mSaldos::TotalizarNotaProveedor(c, u"N-1"_s, 0.45).ok);
  COMPARE_ROW(c, u"notas proveedor"_s, u"nota"_s, u"N-1"_s, u"total=30|retencion=9"_s);

  // An invoice without rows holds only its retentions, negative.
  const Session session = company.MakeSession();
  QVERIFY(AddDocument(c, u"facturas"_s, u"factura"_s, u"A-1"_s, {},
                      {{u"importe"_s, 99.0}, {u"total"_s, 99.0}}));
  QVERIFY(mSaldos::TotalizarFactura(c, session, u"A-1"_s, {4, 3, 2}).ok);
  COMPARE_ROW(c, u"facturas"_s, u"factura"_s, u"A-1"_s, u"importe=0|total=-9"_s);
  // No summary text, no summary row.
  QCOMPARE(Count(c, u"facturas resumen"_s, u"factura"_s, u"A-1"_s), 0);

  // A row without price stops the document and leaves its header as it was.
  QVERIFY(AddDocument(c, u"pedidos"_s, u"pedido"_s, u"P-1"_s,
                      {{1, QVariant(QMetaType(QMetaType::Double))}}, {{u"total"_s, 99.0}}));
  const Outcome done = mSaldos::TotalizarPedido(c, u"P-1"_s);
  QVERIFY(!done.ok);
  QVERIFY(done.message.contains(QLatin1String("precio")));
  QCOMPARE(done.icon, MessageIcon::kStop);
  QCOMPARE(Value(c, u"pedidos"_s, u"pedido"_s, u"P-1"_s, u"total"_s), 99.0);

  QVERIFY(InsertarFila(c, u"ajustes de inventario"_s, {{u"ajuste"_s, u"J-1"_s}}));
  QVERIFY(testing::InsertarFilas(c, u"ajustes de inventario detalles"_s,
                                 {u"ajuste"_s, u"item"_s, u"entradas"_s, u"salidas"_s, u"costo"_s},
                                 {{u"J-1"_s, 1, 5, 0, 2.5},
                                  {u"J-1"_s, 2, 0, 2, 10.125},
                                  {u"J-1"_s, 3, 3, 0, QVariant(QMetaType(QMetaType::Double))}}));
  QVERIFY(mSaldos::TotalizarAjuste(c, u"J-1"_s).ok);
  // 12.5 in, 20.25 out, and a row without cost that counts nothing; not rounded.
  QCOMPARE(Value(c, u"ajustes de inventario"_s, u"ajuste"_s, u"J-1"_s, u"total"_s), -7.75);
}

void TstTotals::relatedDocumentsList() {
  VENTARIX_COMPANY_CONNECTION(company, c);
  QVERIFY(testing::InsertarFilas(
      c, u"cxc detalles"_s, {u"pago"_s, u"item"_s, u"factura"_s},
      {{u"P-1"_s, 1, u"A-1"_s}, {u"P-1"_s, 2, u"A-2"_s}, {u"P-1"_s, 3, u"A-1"_s}}));
  QString error;
  QStringList facturas =
      mSaldos::ListaDocumentosRelacionados(c, u"cxc"_s, u"pago"_s, u"P-1"_s, u"factura"_s, &error);
  facturas.sort();
  QCOMPARE(facturas, (QStringList{u"A-1"_s, u"A-2"_s}));
  QVERIFY(error.isEmpty());
  // Nothing related: the list of nothing, which a scope turns into "matches none".
  QCOMPARE(mSaldos::ListaDocumentosRelacionados(c, u"cxc"_s, u"pago"_s, u"P-9"_s, u"factura"_s),
           QStringList{QString()});
  // The orders behind a purchase, read from another family's rows.
  QVERIFY(AddDocument(c, u"compras"_s, u"compra"_s, u"C-1"_s, {{1, 1}}));
  QVERIFY(testing::Escribir(c, u"update \"compras detalles\" set orden = 'O-5'"_s));
  QCOMPARE(mSaldos::ListaDocumentosRelacionados(c, u"compras"_s, u"compra"_s, u"C-1"_s, u"orden"_s),
           QStringList{u"O-5"_s});
}

void TstTotals::randomDocumentsAreStableAndAddUp() {
  VENTARIX_COMPANY_CONNECTION(company, c);
  const Session session = company.MakeSession();
  QRandomGenerator random(20240315);
  // Figures with more places than kept, and many exact ties.
  auto figure = [&](int whole, int places) {
    double value = random.bounded(whole * 100000) / 100000.0;
    if (random.bounded(3) == 0) value = random.bounded(whole * 1000) / 1000.0 + 0.00005;
    return std::round(value * std::pow(10, places)) / std::pow(10, places);
  };
  const double percents[] = {0, 5, 12.5, 33.333, 16, 16.004, 2.5};
  for (const Family& f : kFamilies) {
    const QString table = T(f.table);
    const QString key_column = T(f.key);
    QStringList keys;
    for (int d = 0; d < 6; ++d) {
      std::vector<Row> rows;
      const int count = random.bounded(7);
      for (int i = 0; i < count; ++i) {
        rows.push_back({figure(40, 10), figure(900, 6), percents[random.bounded(7)],
                        percents[random.bounded(7)], figure(500, 3), percents[random.bounded(7)]});
      }
      keys << u"R-%1"_s.arg(d + 1);
      QVERIFY(AddDocument(c, table, key_column, keys.last(), rows));
      QVERIFY(Totalizar(c, session, f, keys.last()).ok);
    }
    const QStringList headers = Snapshot(c, table, key_column);
    const QStringList rows = Snapshot(c, table + u" detalles"_s, key_column);
    for (const QString& key : keys) QVERIFY(Totalizar(c, session, f, key).ok);
    QCOMPARE(Snapshot(c, table, key_column), headers);
    QCOMPARE(Snapshot(c, table + u" detalles"_s, key_column), rows);

    QStringList sums = {u"importe"_s, u"descuento"_s, u"subtotal"_s, u"iva"_s, u"total"_s};
    if (f.cost) sums << u"costo"_s << u"comision"_s << u"utilidad"_s;
    for (const QString& key : keys) {
      for (const QString& column : sums) {
        const QString row_column = column == QLatin1String("costo") ? u"costototal"_s : column;
        QSqlQuery q = c.Exec(
            u"select %1 from %2 where %3 = ?"_s.arg(
                row_column, dialect::Name(table + u" detalles"_s), dialect::Name(key_column)),
            {key});
        double sum = 0;
        while (q.next()) {
          const double stored = q.value(0).toDouble();
          // Every stored figure already has no more than four places.
          QCOMPARE(std::round(stored * 10000) / 10000, stored);
          sum += stored;
        }
        const double header = Value(c, table, key_column, key, column);
        QVERIFY2(std::abs(header - sum) < 1e-9,
                 qPrintable(u"%1 %2 %3: %4 vs %5"_s.arg(table, key, column)
                                .arg(header, 0, 'g', 17)
                                .arg(sum, 0, 'g', 17)));
      }
    }
  }
}

QTEST_GUILESS_MAIN(TstTotals)
#include "tst_totals.moc"
