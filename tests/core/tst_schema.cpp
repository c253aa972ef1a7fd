// A new company database carries every table and index a company needs, read back from the
// database's own catalogue, and the columns that the screens and routines read and write.
#include <QMap>
#include <QSet>
#include <QSqlQuery>
#include <QTest>

#include "core/dialect.h"
#include "core/registro_inicial.h"
#include "support/test_company.h"

using namespace ventarix;

namespace {

QString S(const char* text) { return QString::fromUtf8(text); }

// Document tables and their indexes, row by row as the design lists them: "name columns" with
// "+" between the columns of a compound key and "!" on a unique index.
const char* const kDocumentIndexes[][2] = {
    {"ordenes de compra",
     "orden0 orden, orden1 proveedor, orden2 fecha, orden3 status, "
     "orden4 periodo"},
    {"ordenes de compra detalles",
     "orden0d orden, orden1d proveedor, orden2d fecha, orden3d codigo"},
    {"compras",
     "compras0 compra!, compras1 proveedor, compras2 fecha, compras3 status, "
     "compras4 usuario, compras5 periodo"},
    {"compras detalles",
     "compras0d compra, compras1d proveedor, compras2d fecha, "
     "compras3d codigo, compras4d orden"},
    {"contrarecibos",
     "contrarecibos0 contrarecibo!, contrarecibos1 fecha, "
     "contrarecibos2 proveedor, contrarecibos3 status, contrarecibos4 periodo"},
    {"contrarecibos detalles",
     "contrarecibos0d contrarecibo, contrarecibos1d fecha, contrarecibos2d proveedor, "
     "contrarecibos3d compra, contrarecibos4d factura"},
    {"cotizaciones",
     "cotizaciones0 cotizacion!, cotizaciones1 cliente, cotizaciones2 fecha, "
     "cotizaciones3 status, cotizaciones4 periodo"},
    {"cotizaciones detalles",
     "cotizaciones0d cotizacion, cotizaciones1d fecha, cotizaciones2d codigo"},
    {"pedidos", "pedido0 pedido, pedido1 cliente, pedido2 fecha, pedido3 status, pedido4 periodo"},
    {"pedidos detalles", "pedido0d pedido, pedido1d cliente, pedido2d fecha, pedido3d codigo"},
    {"remisiones",
     "remisiones0 remision!, remisiones1 tipo, remisiones2 cliente, "
     "remisiones3 fecha, remisiones4 status, remisiones5 periodo"},
    {"remisiones detalles", "remisiones0d remision, remisiones1d fecha, remisiones2d codigo"},
    {"facturas",
     "facturas0 factura!, facturas1 cliente, facturas2 agente, facturas3 fecha, "
     "facturas4 depto, facturas5 status, facturas6 periodo"},
    {"facturas detalles", "facturas0d factura, facturas1d fecha, facturas2d codigo"},
    {"facturas resumen", "facturas0r factura, facturas1r fecha, facturas2r codigo"},
    {"produccion",
     "produccion0 produccion!, produccion1 cliente, produccion2 fecha, "
     "produccion3 codigo, produccion4 status, produccion5 periodo"},
    {"produccion detalles", "produccion0d produccion, produccion1d fecha, produccion2d codigo"},
    {"traspasos",
     "traspasos0 traspaso!, traspasos1 fecha, traspasos2 de, traspasos3 a, "
     "traspasos4 status, traspasos5 periodo"},
    {"traspasos detalles",
     "traspasos0d traspaso, traspasos1d fecha, traspasos2d de, "
     "traspasos3d a, traspasos4d codigo"},
    {"cxc", "cxc0 pago!, cxc1 fecha, cxc2 cliente, cxc3 status, cxc4 periodo"},
    {"cxc detalles", "cxc0d pago, cxc1d fecha, cxc2d cliente, cxc3d factura"},
    {"cxp", "cxp0 pago!, cxp1 fecha, cxp2 proveedor, cxp3 status, cxp4 periodo"},
    {"cxp detalles", "cxp0d pago, cxp1d fecha, cxp2d proveedor, cxp3d compra"},
    {"notas cliente", "nc0 nota!, nc1 cliente, nc2 fecha, nc3 status, nc4 periodo"},
    {"notas cliente detalles",
     "nc0d nota, nc1d cliente, nc2d fecha, nc3d factura, nc4d codigo, nc5d partida"},
    {"notas cliente resumen", ""},
    {"notas proveedor", "np0 nota!, np1 proveedor, np2 fecha, np3 status, np4 periodo"},
    {"notas proveedor detalles",
     "np0d nota, np1d proveedor, np2d fecha, np3d compra, np4d codigo, np5d partida"},
    {"licitaciones",
     "licitacion0 licitacion!, licitacion1 fecha, licitacion2 status, "
     "licitacion3 usuario, licitacion4 periodo"},
    {"licitaciones detalles", "licitacion0d licitacion, licitacion1d codigo"},
    {"licitaciones precios",
     "licitacion0p licitacion, licitacion1p proveedor, licitacion2p codigo"},
    {"licitaciones precios b", "licitacion0b proveedor, licitacion1b codigo"},
    {"ajustes de inventario",
     "ajustes0 ajuste!, ajuste0 ajuste!, ajustes1 almacen, "
     "ajustes2 fecha, ajuste1 fecha, ajustes3 status, ajuste2 status, "
     "ajustes4 periodo, ajuste3 periodo"},
    {"ajustes de inventario detalles",
     "ajustes0d ajuste, ajuste0d ajuste, ajustes1d fecha, ajuste1d fecha, ajustes2d almacen, "
     "ajustes3d codigo, ajuste2d codigo"},
};

// Catalogues, settings and the other tables.
const char* const kCatalogIndexes[][2] = {
    {"clientes", "clientes0 numero!, clientes1 nombre, clientes2 rfc"},
    {"agentes", "agentes1 numero!"},
    {"proveedores", "proveedores0 numero!, proveedores1 nombre, proveedores2 rfc"},
    {"marcas", "marcas0 numero!"},
    {"lineas", "lineas0 numero!"},
    {"productos", "productos0 codigo!, productos1 producto, productos2 marca, productos3 linea"},
    {"productos precios", "productosprecios0 cliente+codigo"},
    {"productos consumos", "productosconsumos0 codigo"},
    {"clientes utilidades", "clientesutilidades0 cliente+marca"},
    {"bancos", "bancos0 numero!"},
    {"metodos", "metodos0 numero!"},
    {"tipos", ""},
    {"series", "series0 documento+serie"},
    {"campos", ""},
    {"obsoletos", ""},
    {"tablas", "tablas0 tabla+usuario!"},
    {"usuarios", "usuarios0 usuario!"},
    {"configurar", ""},
    {"empresa", "empresa0 numero!"},
    {"folios facturas", "ff0 numero!"},
    {"folios notas", "fn0 numero!"},
    {"certificados", "certificados0 numero+documento!"},
    {"cbb", "cbb0 numero+documento!"},
    {"ticket", "ticket0 numero!"},
    {"reporte", "reporte0 reporte!, reporte1 documento, reporte2 serie"},
    {"reporte secciones", "reporte0s reporte, reporte1s seccion"},
    {"reporte controles", "reporte0c reporte, reporte1c seccion, reporte2c numero"},
    {"impresoras", "impresoras0 reporte"},
    {"addenda coppel", ""},
    {"addenda coppel detalles", ""},
    {"addenda inbursa", ""},
    {"addenda qualitas", ""},
    {"addenda axxa", ""},
    {"ordenes de trabajo", ""},
    {"inventario", ""},
};

struct IndexFound {
  QString table;
  QStringList columns;
  bool unique = false;
};

QStringList Column(QSqlQuery query, int column = 0) {
  QStringList values;
  while (query.next()) values << query.value(column).toString();
  return values;
}

QStringList DatabaseTables(Connection& c) {
  if (c.sql()) {
    return Column(c.Exec(S("select tablename from pg_tables where schemaname = current_schema()")));
  }
  return Column(c.Exec(S("select name from sqlite_master where type = 'table'")));
}

QMap<QString, IndexFound> DatabaseIndexes(Connection& c) {
  QMap<QString, IndexFound> found;
  if (c.sql()) {
    QSqlQuery q =
        c.Exec(S("select i.relname, t.relname, x.indisunique, a.attname from pg_index x "
                 "join pg_class i on i.oid = x.indexrelid join pg_class t on t.oid = x.indrelid "
                 "join pg_namespace s on s.oid = t.relnamespace "
                 "cross join lateral unnest(x.indkey::int2[]) with ordinality as k(attnum, n) "
                 "join pg_attribute a on a.attrelid = t.oid and a.attnum = k.attnum "
                 "where s.nspname = current_schema() order by i.relname, k.n"));
    while (q.next()) {
      IndexFound& index = found[q.value(0).toString()];
      index.table = q.value(1).toString();
      index.unique = q.value(2).toBool();
      index.columns << q.value(3).toString();
    }
    return found;
  }
  for (const QString& table : DatabaseTables(c)) {
    QSqlQuery list = c.Exec(S("pragma index_list(%1)").arg(dialect::Name(table)));
    while (list.next()) {
      const QString name = list.value(1).toString();
      IndexFound& index = found[name];
      index.table = table;
      index.unique = list.value(2).toInt() != 0;
      index.columns = Column(c.Exec(S("pragma index_info(%1)").arg(dialect::Name(name))), 2);
    }
  }
  return found;
}

// The family of a column's declared type: T text, I integer, N double, D date-time, B binary.
QString Kind(QString declared) {
  declared = declared.toLower();
  if (declared.contains(S("timestamp")) || declared.contains(S("date"))) return S("D");
  if (declared.contains(S("int"))) return S("I");
  if (declared.contains(S("double")) || declared.contains(S("real"))) return S("N");
  if (declared.contains(S("blob")) || declared.contains(S("bytea"))) return S("B");
  if (declared.contains(S("text")) || declared.contains(S("char"))) return S("T");
  return declared;
}

QMap<QString, QString> DatabaseColumns(Connection& c, const QString& table) {
  QMap<QString, QString> kinds;
  QSqlQuery q = c.sql() ? c.Exec(S("select column_name, data_type from information_schema.columns "
                                   "where table_schema = current_schema() and table_name = ?"),
                                 {table})
                        : c.Exec(S("pragma table_info(%1)").arg(dialect::Name(table)));
  const int name = c.sql() ? 0 : 1;
  while (q.next()) kinds.insert(q.value(name).toString(), Kind(q.value(name + 1).toString()));
  return kinds;
}

// A header row of a sales document that obeys the column rules of a new company.
bool InsertHeader(Connection& c, const QString& table, const QString& key_column,
                  const QString& key) {
  QVariantMap row = {{key_column, key},
                     {S("serie"), S("A")},
                     {S("folio"), 1},
                     {S("fecha"), dialect::DateValue(QDate(2014, 1, 31), c.sql())},
                     {S("periodo"), 2014},
                     {S("cliente"), 1},
                     {S("tienda"), 1},
                     {S("status"), S("POR SURTIR")},
                     {S("usuario"), S("ADMINISTRADOR")},
                     {S("equipo"), S("CAJA1")}};
  if (table == S("remisiones")) {
    row.insert(S("status"), S("POR FACTURAR"));
    row.insert(S("metodo"), 1);
  }
  return testing::Insertar(c, table, row);
}

}  // namespace

class TstSchema : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  // Every table is there and no scratch table; every index stands on its columns with its
  // uniqueness.
  void aNewCompanyHasEveryTableAndIndex() {
    VENTARIX_COMPANY_CONNECTION(company, c);
    QVERIFY2(c.ok(), qPrintable(c.error()));
    const QStringList tables = DatabaseTables(c);
    const QSet<QString> present(tables.cbegin(), tables.cend());
    QStringList missing;
    for (const auto& row : kDocumentIndexes) {
      if (!present.contains(S(row[0]))) missing << S(row[0]);
    }
    for (const auto& row : kCatalogIndexes) {
      if (!present.contains(S(row[0]))) missing << S(row[0]);
    }
    QVERIFY2(missing.isEmpty(), qPrintable(missing.join(S(", "))));
    // Working tables of reports and of the availability check live in scratch databases.
    for (const char* scratch : {"kardex", "proyeccion", "vencidos", "codigos", "entregadas"}) {
      QVERIFY2(!present.contains(S(scratch)), scratch);
    }
    const QMap<QString, IndexFound> found = DatabaseIndexes(c);
    int expected = 0;
    QStringList faults;
    auto check = [&](const char* table, const char* list) {
      for (const QString& item : S(list).split(S(", "), Qt::SkipEmptyParts)) {
        ++expected;
        const QString name = item.section(QLatin1Char(' '), 0, 0);
        QString columns = item.section(QLatin1Char(' '), 1);
        const bool unique = columns.endsWith(QLatin1Char('!'));
        columns.remove(QLatin1Char('!'));
        const IndexFound f = found.value(name);
        if (f.table != S(table) || f.columns.join(QLatin1Char('+')) != columns ||
            f.unique != unique) {
          faults << S("%1: %2 (%3) %4")
                        .arg(name, f.table, f.columns.join(QLatin1Char('+')),
                             f.unique ? S("unique") : S("not unique"));
        }
      }
    };
    for (const auto& row : kDocumentIndexes) check(row[0], row[1]);
    for (const auto& row : kCatalogIndexes) check(row[0], row[1]);
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(S("; "))));
    QCOMPARE(expected, 193);
  }

  void uniqueKeysSettleACollisionOfFolios() {
    VENTARIX_COMPANY_CONNECTION(company, c);
    QVERIFY2(c.ok(), qPrintable(c.error()));
    // Two stations saving the same delivery note: the second insert is refused.
    QVERIFY(InsertHeader(c, S("remisiones"), S("remision"), S("A-1")));
    QVERIFY(!InsertHeader(c, S("remisiones"), S("remision"), S("A-1")));
    // Sales orders carry no unique key: their screens check duplicates instead.
    QVERIFY(InsertHeader(c, S("pedidos"), S("pedido"), S("A-1")));
    QVERIFY(InsertHeader(c, S("pedidos"), S("pedido"), S("A-1")));
    QCOMPARE(c.Scalar(S("select count(*) from pedidos where pedido = ?"), {S("A-1")}).toInt(), 2);
  }

  // Columns that screens and routines read and write, with the family of their type.
  void columnsThatTheSystemReadsAndWrites() {
    VENTARIX_COMPANY_CONNECTION(company, c);
    QVERIFY2(c.ok(), qPrintable(c.error()));
    const char* const rows[][3] = {
        // Rights and saved views.
        {"usuarios", "contraseña", "T"},
        {"usuarios", "tienda", "I"},
        {"usuarios", "permisos", "T"},
        {"usuarios", "ordenescompra", "T"},
        {"usuarios", "foliosnotas", "T"},
        {"usuarios", "modificarcredito", "T"},
        {"usuarios", "aplicarseriesenfacturas", "T"},
        {"usuarios", "seriefacturacion9", "T"},
        {"tablas", "sentencia", "T"},
        {"tablas", "seguridad", "T"},
        {"tablas", "extender", "I"},
        {"tablas", "posicion", "I"},
        // Company and terminal settings.
        {"empresa", "impuesto", "N"},
        {"empresa", "respaldar", "I"},
        {"empresa", "expedidoencodigopostal", "T"},
        {"empresa", "guardar_sin_existencias", "T"},
        {"empresa", "pacproduccion", "T"},
        {"empresa", "logotipo", "B"},
        {"empresa", "codigo nuevo", "T"},
        {"configurar", "pantallapordefaultentpv", "I"},
        {"configurar", "ticketserie", "T"},
        {"configurar", "notarmi", "I"},
        {"configurar", "cotizacionimpresoracopia", "T"},
        {"configurar", "ticketenc9", "T"},
        {"configurar", "notapie1", "T"},
        // Folio ranges, key material, addendas.
        {"folios facturas", "domicilio", "T"},
        {"folios facturas", "pagare", "T"},
        {"folios facturas", "validohasta", "D"},
        {"folios notas", "domicilio", "T"},
        {"folios notas", "folioinicial", "I"},
        {"certificados", "llave", "B"},
        {"cbb", "cbb", "B"},
        {"addenda coppel", "fechapedido", "D"},
        {"addenda coppel detalles", "totalcondescuentoitem", "N"},
        {"addenda qualitas", "poliza_nrosiniestro", "T"},
        {"addenda axxa", "fechaprefactura", "D"},
        {"addenda inbursa", "siniestro_afectado", "T"},
        {"ordenes de trabajo", "año", "T"},
        // Stored designs.
        {"reporte", "reportnumber", "I"},
        {"reporte", "sentencia", "T"},
        {"reporte secciones", "keeptogether", "I"},
        {"reporte controles", "left", "I"},
        {"reporte controles", "datafield", "T"},
        {"reporte controles", "fontsize", "N"},
        {"impresoras", "vistaimpresoras", "T"},
        // Documents, beyond the common columns.
        {"compras", "movimiento", "T"},
        {"productos", "proveedor2", "I"},
        {"productos", "fecha ultima venta", "D"},
        {"facturas", "descripcion", "T"},
        {"facturas", "qrcode", "T"},
        {"facturas", "retencion isr $", "N"},
        {"facturas", "emisorexpedidoencodigopostal", "T"},
        {"facturas", "receptorcliente", "I"},
        {"facturas detalles", "facturar", "T"},
        {"notas cliente", "egreso", "I"},
        {"notas cliente", "sellosat", "T"},
        {"remisiones", "facturada", "D"},
        {"remisiones", "orden de compra", "T"},
        {"pedidos", "periodo", "I"},
        {"cxp", "motivo de baja", "T"},
        {"ajustes de inventario detalles", "real", "N"},
        {"contrarecibos detalles", "fechaapagar", "D"},
    };
    QStringList faults;
    for (const auto& row : rows) {
      const QString kind = DatabaseColumns(c, S(row[0])).value(S(row[1]), S("missing"));
      if (kind != S(row[2])) faults << S("%1.%2: %3").arg(S(row[0]), S(row[1]), kind);
    }
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(S("; "))));
  }
};

QTEST_GUILESS_MAIN(TstSchema)
#include "tst_schema.moc"
