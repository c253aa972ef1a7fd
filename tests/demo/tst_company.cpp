#include <QDate>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QSqlQuery>
#include <QTest>

#include "core/company_database.h"
#include "core/dialect.h"
#include "core/session_load.h"
#include "core/startup.h"
#include "demo/demo_company.h"
#include "documents/mInventario.h"
#include "edocs/llave_privada.h"
#include "support/empresa_demo.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace Qt::StringLiterals;

namespace {

std::unique_ptr<testing::TestCompany> Demo() { return testing::EmpresaDemo(); }

#define VENTARIX_DEMO(var)     \
  const auto var = Demo();     \
  if (!var) return;            \
  Connection c(var->cadena()); \
  QVERIFY2(c.ok(), qPrintable(c.error()))

int Count(Connection& c, const QString& statement) { return c.Scalar(statement).toInt(); }

// The format and date checks an RFC must pass to go on an invoice.
bool RfcPlausible(const QString& rfc) {
  static const QRegularExpression pattern(u"^[A-ZÑ&]{3,4}(\\d\\d)(\\d\\d)(\\d\\d)[A-Z0-9Ñ&]{3}$"_s);
  const QRegularExpressionMatch m = pattern.match(rfc);
  if (!m.hasMatch()) return false;
  const int month = m.captured(2).toInt();
  const int day = m.captured(3).toInt();
  return month >= 1 && month <= 12 && day >= 1 && day <= 31;
}

const QStringList kDomicilio{u"calle"_s,     u"noexterior"_s, u"colonia"_s, u"localidad"_s,
                             u"municipio"_s, u"estado"_s,     u"pais"_s,    u"codigopostal"_s};

}  // namespace

class TestDemoCompany : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  // The issuer of every invoice: one row, a full fiscal address, and the RFC of a SAT test
  // certificate on hand, so that documents can be sealed. No users: the company check passes
  // and the login is skipped, as ADMINISTRADOR.
  void EmpresaListaParaFacturar() {
    VENTARIX_DEMO(company);
    QCOMPARE(Count(c, u"select count(*) from usuarios"_s), 0);
    Session session = company->MakeSession();
    QVERIFY(startup::ChecarEmpresa(session).ok);
    QVERIFY(startup::EntrarSinAcceso(session));
    QCOMPARE(session.Usuario, u"ADMINISTRADOR"_s);
    QVERIFY(session.Administrador);
    QCOMPARE(Count(c, u"select count(*) from empresa"_s), 1);
    QSqlQuery q = c.Exec(u"select * from empresa where numero = 1"_s);
    QVERIFY(q.next());
    const QString rfc = q.value(u"rfc"_s).toString();
    QVERIFY2(RfcPlausible(rfc), qPrintable(rfc));
    QVERIFY(QFile::exists(QStringLiteral(VENTARIX_SHARED_DIR "/sat/csd/") + rfc +
                          u"_30001000000500003416.cer"_s));
    for (const QString& column : kDomicilio) {
      QVERIFY2(!q.value(column).toString().isEmpty(), qPrintable(column));
      QVERIFY2(!q.value(u"expedidoen"_s + column).toString().isEmpty(), qPrintable(column));
    }
    QCOMPARE(q.value(u"codigopostal"_s).toString().size(), 5);
    QCOMPARE(q.value(u"impuesto"_s).toDouble(), 16.0);
    QCOMPARE(q.value(u"moneda"_s).toString(), u"MXN"_s);
    // Exactly one of the two price formulas, the one the products follow.
    QCOMPARE(q.value(u"aplicar_utilidad_aritmetica"_s).toString(), u"S"_s);
    QCOMPARE(q.value(u"aplicar_utilidad_financiera"_s).toString(), u"N"_s);
  }

  void ClientesConDomicilioCompleto() {
    VENTARIX_DEMO(company);
    QSqlQuery q = c.Exec(
        u"select c.*, (select count(*) from agentes a where a.numero = c.agente) as agentes, "
        "(select count(*) from metodos m where m.numero = c.metodo) as metodos "
        "from clientes c order by c.numero"_s);
    int clientes = 0;
    QSet<QString> rfcs;
    while (q.next()) {
      ++clientes;
      const QString nombre = q.value(u"nombre"_s).toString();
      const QString rfc = q.value(u"rfc"_s).toString();
      if (clientes == 1) QCOMPARE(rfc, u"XAXX010101000"_s);  // counter sales
      QVERIFY2(RfcPlausible(rfc), qPrintable(nombre + u' ' + rfc));
      QVERIFY2(!rfcs.contains(rfc), qPrintable(rfc));
      rfcs.insert(rfc);
      for (const QString& column : kDomicilio) {
        QVERIFY2(!q.value(column).toString().isEmpty(), qPrintable(nombre + u' ' + column));
      }
      QCOMPARE(q.value(u"codigopostal"_s).toString().size(), 5);
      QVERIFY(q.value(u"plazo"_s).toInt() >= 1);
      QCOMPARE(q.value(u"agentes"_s).toInt(), 1);
      QCOMPARE(q.value(u"metodos"_s).toInt(), 1);
      QCOMPARE(q.value(u"status"_s).toString(), u"ALTA"_s);
    }
    QVERIFY2(clientes >= 20, qPrintable(QString::number(clientes)));
    QVERIFY(Count(c, u"select count(*) from proveedores where rfc <> ''"_s) >= 5);
    QVERIFY(Count(c, u"select count(*) from bancos"_s) >= 1);
  }

  // Each level's price is the cost with the brand's margin on top, to the cent, and the sale
  // price with tax is level 1 plus 16%.
  void PreciosSiguenLosMargenesDeLaMarca() {
    VENTARIX_DEMO(company);
    QSqlQuery q = c.Exec(
        u"select p.*, m.utilidad1 as m1, m.utilidad2 as m2, m.utilidad3 as m3, m.utilidad4 as m4, "
        "m.utilidad5 as m5, (select count(*) from lineas l where l.numero = p.linea) as lineas, "
        "(select count(*) from proveedores v where v.numero = p.proveedor1) as proveedores "
        "from productos p join marcas m on m.numero = p.marca order by p.codigo"_s);
    int productos = 0;
    while (q.next()) {
      ++productos;
      const QString codigo = q.value(u"codigo"_s).toString();
      const double costo = q.value(u"costo"_s).toDouble();
      QVERIFY2(costo > 0, qPrintable(codigo));
      for (int k = 1; k <= 5; ++k) {
        const double margen = q.value(u"m%1"_s.arg(k)).toDouble();
        QCOMPARE(q.value(u"utilidad%1"_s.arg(k)).toDouble(), margen);
        const double precio = q.value(u"precio%1"_s.arg(k)).toDouble();
        QVERIFY2(qAbs(precio - costo * (1 + margen / 100)) <= 0.005 + 1e-9,
                 qPrintable(u"%1 nivel %2: %3"_s.arg(codigo).arg(k).arg(precio)));
      }
      const double precio1 = q.value(u"precio1"_s).toDouble();
      QCOMPARE(q.value(u"venta"_s).toDouble(), precio1);
      const double impuesto = q.value(u"impuesto"_s).toDouble();
      QVERIFY2(impuesto == 16.0 || impuesto == 0.0, qPrintable(codigo));
      const double con_impuesto = precio1 * (1 + impuesto / 100);
      QVERIFY2(qAbs(q.value(u"precio"_s).toDouble() - con_impuesto) < 0.00005 + 1e-9,
               qPrintable(codigo));
      QCOMPARE(q.value(u"lineas"_s).toInt(), 1);
      QCOMPARE(q.value(u"proveedores"_s).toInt(), 1);
    }
    QVERIFY2(productos >= 200, qPrintable(QString::number(productos)));
    QCOMPARE(Count(c, u"select count(*) from productos"_s), productos);
  }

  // What the price and production screens need to show something: a product of the shop's own
  // whose materials exist, agreed prices of wholesale clients, goods at 0 % and a product
  // withdrawn from sale.
  void ProductosEspeciales() {
    VENTARIX_DEMO(company);
    QSqlQuery kit = c.Exec(
        u"select p.codigo, p.costo, (select count(*) from productos m join \"productos consumos\" "
        u"k "
        "on k.equivale = m.codigo where k.codigo = p.codigo) as materiales, (select sum(m.costo * "
        "k.cantidad) from productos m join \"productos consumos\" k on k.equivale = m.codigo where "
        "k.codigo = p.codigo) as costo_materiales from productos p where p.pt = 'S'"_s);
    QVERIFY(kit.next());
    QVERIFY(kit.value(2).toInt() >= 2);
    QVERIFY(qAbs(kit.value(1).toDouble() - kit.value(3).toDouble()) < 0.005);
    QVERIFY(!kit.next());
    QSqlQuery precios = c.Exec(
        u"select pp.precio, p.precio2, c.tipo from \"productos precios\" pp join productos p on "
        "p.codigo = pp.codigo join clientes c on c.numero = pp.cliente"_s);
    int acordados = 0;
    while (precios.next()) {
      ++acordados;
      QVERIFY(precios.value(0).toDouble() < precios.value(1).toDouble());
      QCOMPARE(precios.value(2).toString(), u"MAYOREO"_s);
    }
    QVERIFY(acordados >= 6);
    QCOMPARE(Count(c, u"select count(*) from \"productos precios\""_s), acordados);
    QVERIFY(Count(c, u"select count(*) from productos where impuesto = 0"_s) >= 3);
    QCOMPARE(Count(c, u"select count(*) from productos where status = 'BAJA'"_s), 1);
  }

  // The stock is positive in the main warehouse, never negative elsewhere, and stands on
  // opening counts, so the nightly rebuild from the documents finds the same figures in
  // every warehouse.
  void ExistenciasRespaldadasPorElInventarioInicial() {
    VENTARIX_DEMO(company);
    QCOMPARE(Count(c, u"select count(*) from productos where almacen1 <= 0"_s), 0);
    QCOMPARE(Count(c,
                   u"select count(*) from productos where almacen2 < 0 or almacen3 < 0 or "
                   "almacen4 < 0 or almacen5 < 0"_s),
             0);
    QVERIFY(Count(c, u"select count(*) from productos where almacen2 > 0"_s) > 0);
    const QString todo =
        u"select sum(almacen1) || '|' || sum(almacen2) || '|' || sum(almacen3) || '|' || "
        "sum(almacen4) || '|' || sum(almacen5) from productos"_s;
    const QString antes = c.Scalar(todo).toString();
    QString error;
    QVERIFY2(mInventario::RecalcularExistencias(c, 0, std::nullopt, &error), qPrintable(error));
    QCOMPARE(c.Scalar(todo).toString(), antes);
    // The five opening counts and the count of the last days.
    QCOMPARE(Count(c, u"select count(*) from \"ajustes de inventario\""_s), 6);
  }

  // One default CFDi range of invoices and one of credit notes, sealed with the SAT's test
  // certificate of the company's RFC: the numbers as the certificate tells them, the files
  // stored byte for byte, and a password that opens the key.
  void RangosElectronicos_data() {
    QTest::addColumn<QString>("tabla");
    QTest::addColumn<int>("documento");
    QTest::addColumn<QString>("serie");
    QTest::newRow("facturas") << u"folios facturas"_s << 0 << u"A"_s;
    QTest::newRow("notas") << u"folios notas"_s << 1 << u"NC"_s;
  }
  void RangosElectronicos() {
    QFETCH(QString, tabla);
    QFETCH(int, documento);
    QFETCH(QString, serie);
    VENTARIX_DEMO(company);
    QCOMPARE(Count(c, u"select count(*) from \"%1\""_s.arg(tabla)), 1);
    QSqlQuery r = c.Exec(u"select * from \"%1\""_s.arg(tabla));
    QVERIFY(r.next());
    const auto texto = [&r](const char* columna) {
      return r.value(QString::fromLatin1(columna)).toString();
    };
    const std::pair<const char*, QString> esperados[] = {{"serie", serie},
                                                         {"esquema", u"CFDI"_s},
                                                         {"version", u"3.2"_s},
                                                         {"folioinicial", u"1"_s},
                                                         {"foliofinal", u"1000"_s},
                                                         {"cantidad", u"1000"_s},
                                                         {"predeterminar", u"+"_s},
                                                         {"status", u"ALTA"_s},
                                                         {"algoritmosellodigital", u"sha-1"_s}};
    for (const auto& [columna, valor] : esperados) QCOMPARE(texto(columna), valor);
    QVERIFY(!texto("regimenfiscal").isEmpty());
    QCOMPARE(texto("nocertificado"), u"30001000000500003416"_s);
    // The certificate runs from 18 May 2023 to 18 May 2027, 11:43:51 GMT.
    QCOMPARE(dialect::ReadDate(r.value(u"validodesde"_s)).toUTC(),
             QDateTime(QDate(2023, 5, 18), QTime(11, 43, 51), Qt::UTC));
    QCOMPARE(dialect::ReadDate(r.value(u"validohasta"_s)).toUTC(),
             QDateTime(QDate(2027, 5, 18), QTime(11, 43, 51), Qt::UTC));
    const QString par = u"EKU9003173C9_30001000000500003416"_s;
    QCOMPARE(texto("archivocertificado"), par + u".cer"_s);
    QCOMPARE(texto("archivollave"), par + u".key"_s);

    QSqlQuery m = c.Exec(
        u"select certificado, llave, password from certificados "
        "where documento = ? and numero = 1"_s,
        {documento});
    QVERIFY(m.next());
    const QString csd = QStringLiteral(VENTARIX_SHARED_DIR "/sat/csd/") + par;
    QFile cer(csd + u".cer"_s);
    QFile key(csd + u".key"_s);
    QVERIFY(cer.open(QIODevice::ReadOnly) && key.open(QIODevice::ReadOnly));
    const QByteArray certificado = m.value(0).toByteArray();
    QCOMPARE(certificado, cer.readAll());
    QCOMPARE(m.value(1).toByteArray(), key.readAll());
    const edocs::LlavePrivada llave =
        edocs::LlavePrivada::Abrir(m.value(1).toByteArray(), m.value(2).toString());
    QVERIFY(llave.ok());
    QVERIFY(llave.CorrespondeA(certificado));

    // The session starts on these ranges.
    Session session = company->MakeSession();
    CargarFolios(session);
    QCOMPARE(documento == 0 ? session.FolioFacturas : session.FolioNotas, 1);
  }

  // A demo made anew equals the program's template copy.
  void SiempreLosMismosDatos() {
    VENTARIX_DEMO(first);
    QFETCH_GLOBAL(QString, engine);
    testing::TestCompany second(engine, false);
    QVERIFY2(second.ok(), qPrintable(second.error()));
    const Outcome made = CrearEmpresaDemo(second.path());
    QVERIFY2(made, qPrintable(made.message));
    Connection d(second.cadena());
    const QString statement =
        u"select p.codigo || '|' || p.producto || '|' || p.costo || '|' || p.almacen1 || '|' || "
        "c.rfc from productos p, clientes c where c.numero = (p.marca * 3) order by p.codigo"_s;
    QSqlQuery a = c.Exec(statement);
    QSqlQuery b = d.Exec(statement);
    int rows = 0;
    while (a.next()) {
      QVERIFY(b.next());
      QCOMPARE(b.value(0).toString(), a.value(0).toString());
      ++rows;
    }
    QVERIFY(!b.next());
    QVERIFY(rows > 0);
    // The history too: the same documents, with the same figures.
    const QString historia =
        u"select (select count(*) || '|' || sum(total) from remisiones) || '|' || "
        "(select count(*) || '|' || sum(total) from pedidos where status = 'BACKORDER')"_s;
    QCOMPARE(d.Scalar(historia).toString(), c.Scalar(historia).toString());
  }

  // The last months as the capture screens would have left them: dates up to today, each
  // note's total that of its rows, cancelled documents at zero with their reason, and every
  // order's pending quantities and status those its delivery notes give.
  void HistoriaDeLosUltimosMeses() {
    VENTARIX_DEMO(company);
    const QDate hoy = QDate::currentDate();
    QSqlQuery q = c.Exec(u"select min(fecha), max(fecha) from remisiones"_s);
    QVERIFY(q.next());
    QVERIFY(dialect::ReadDate(q.value(1)).date() <= hoy);
    QVERIFY(dialect::ReadDate(q.value(1)).date() >= hoy.addDays(-2));
    QVERIFY(dialect::ReadDate(q.value(0)).date() >= hoy.addDays(-160));
    q.finish();
    QCOMPARE(Count(c,
                   u"select count(*) from remisiones r where abs(r.total - (select "
                   "coalesce(sum(d.total), 0) from \"remisiones detalles\" d where d.remision = "
                   "r.remision)) > 0.01"_s),
             0);
    QVERIFY(Count(c, u"select count(*) from remisiones where status = 'BAJA'"_s) > 0);
    QCOMPARE(Count(c,
                   u"select count(*) from remisiones where status = 'BAJA' and (total <> 0 or "
                   "\"motivo de baja\" = '')"_s),
             0);
    QCOMPARE(Count(c,
                   u"select count(*) from \"pedidos detalles\" o where o.surtir <> o.cantidad - "
                   "(select coalesce(sum(d.cantidad), 0) from \"remisiones detalles\" d where "
                   "d.pedido = o.pedido and d.codigo = o.codigo) and o.pedido in (select pedido "
                   "from pedidos "
                   "where status <> 'BAJA')"_s),
             0);
    const QString entregado =
        u"exists (select 1 from \"remisiones detalles\" d where d.pedido = p.pedido)"_s;
    const QString pendiente =
        u"exists (select 1 from \"pedidos detalles\" o where o.pedido = p.pedido and "
        "o.surtir > 0)"_s;
    for (const auto& [status, regla] :
         {std::pair{u"SURTIDO"_s, entregado + u" and not "_s + pendiente},
          std::pair{u"BACKORDER"_s, entregado + u" and "_s + pendiente},
          std::pair{u"POR SURTIR"_s, u"not "_s + entregado}}) {
      const int con_status =
          Count(c, u"select count(*) from pedidos p where status = '"_s + status + u"'"_s);
      QVERIFY2(con_status > 0, qPrintable(status));
      QCOMPARE(Count(c, u"select count(*) from pedidos p where status = '"_s + status +
                            u"' and "_s + regla),
               con_status);
    }
  }

  // The README's paragraph on the demo counts what the demo holds: each "<n> <rows>" of it
  // against its table.
  void ElReadmeCuentaLoQueTiene() {
    VENTARIX_DEMO(company);
    QFile readme(QStringLiteral(VENTARIX_SOURCE_DIR) + u"/README.md"_s);
    QVERIFY(readme.open(QIODevice::ReadOnly | QIODevice::Text));
    const QString texto = QString::fromUtf8(readme.readAll());
    const qsizetype desde = texto.indexOf(u"**The demo company**"_s);
    const QString parrafo = texto.mid(desde, texto.indexOf(u"\n\n"_s, desde) - desde).simplified();
    const QStringList tablas = {u"clients clientes"_s,
                                u"agents agentes"_s,
                                u"suppliers proveedores"_s,
                                u"banks bancos"_s,
                                u"payment methods metodos"_s,
                                u"brands marcas"_s,
                                u"lines lineas"_s,
                                u"products productos"_s,
                                u"delivery notes remisiones"_s,
                                u"quotations cotizaciones"_s,
                                u"orders pedidos"_s,
                                u"invoices facturas"_s,
                                u"credit notes notas cliente"_s,
                                u"receipts cxc"_s,
                                u"purchases compras"_s,
                                u"payments to suppliers cxp"_s};
    for (const QString& par : tablas) {
      const QString tabla =
          par.endsWith(u" notas cliente"_s) ? u"notas cliente"_s : par.section(u' ', -1);
      const QString filas = par.left(par.size() - tabla.size() - 1);
      const QRegularExpressionMatch m =
          QRegularExpression(u"(\\d+) "_s + filas + u"\\b"_s).match(parrafo);
      QCOMPARE(m.captured(1).toInt(), Count(c, u"select count(*) from "_s + dialect::Name(tabla)));
    }
  }

  // Over a company that already holds tables the demo adds nothing.
  void NoSeEscribeSobreOtraEmpresa() {
    VENTARIX_COMPANY(company);
    QVERIFY(!CrearEmpresaDemo(company.path()).ok);
    Connection c(company.cadena());
    QCOMPARE(Count(c, u"select count(*) from productos"_s), 0);
    QCOMPARE(Count(c, u"select count(*) from empresa"_s), 0);
  }
};

QTEST_GUILESS_MAIN(TestDemoCompany)
#include "tst_company.moc"
