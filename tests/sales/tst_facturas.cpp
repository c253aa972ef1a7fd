// Invoices and client credit notes saved through the capture engine on the demo company: the
// road of one sale from three delivery notes to a sealed CFDi invoice, its prompt-payment
// credit note and its cancellation, and the invoice's own rules.
#include <QFile>
#include <QSqlQuery>
#include <QTest>

#include "core/session_load.h"
#include "documents/bajas.h"
#include "documents/captura.h"
#include "documents/mSaldos.h"
#include "edocs/cfdi_xml.h"
#include "edocs/herramientas.h"
#include "sales/facturar_remisiones.h"
#include "sales/familias_ventas.h"
#include "support/empresa_demo.h"
#include "support/escribir.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using captura::Documento;

namespace {

constexpr int kCliente = 2;

Session SesionDe(const testing::TestCompany& company) {
  Session s = company.MakeSession();
  CargarSesion(s);
  return s;
}

QString Guardar(Session& s, const captura::FamiliaCaptura& f, const Documento& d) {
  const captura::Guardado g = captura::GuardarDocumento(s, f, d);
  if (!g.outcome.ok) qWarning() << g.outcome.message;
  return g.outcome.ok ? g.llave : QString();
}

// A cash delivery note of `cantidad` units of the demo's code.
Documento Remision(const QString& codigo, double cantidad, int cliente = kCliente) {
  Documento d;
  d.encabezado = {{u"cliente"_s, cliente},
                  {u"plazo"_s, 0},
                  {u"obs"_s, u"MOSTRADOR"_s},
                  {u"tipo"_s, u"DIRECTA"_s},
                  {u"metodo"_s, 1}};
  d.partidas = {{{u"codigo"_s, codigo}, {u"cantidad"_s, cantidad}}};
  return d;
}

// A free invoice of one row at 16 %.
Documento Libre(const QString& codigo, double precio, QVariantMap encabezado = {}) {
  Documento d;
  d.encabezado = encabezado;
  d.encabezado.insert(u"cliente"_s, kCliente);
  d.partidas = {{{u"codigo"_s, codigo},
                 {u"descripcion"_s, u"SERVICIO DE CORTE"_s},
                 {u"cantidad"_s, 1},
                 {u"precio"_s, precio},
                 {u"impuesto"_s, 16}}};
  return d;
}

QVariant Valor(Connection& c, const QString& sql, const QVariantList& valores) {
  return c.Scalar(sql, valores);
}

// Every client's balance as it stands, then as the full sweep rebuilds it.
QMap<int, double> Saldos(Connection& c) {
  QMap<int, double> saldos;
  QSqlQuery q = c.Exec(u"select numero, saldo from clientes order by numero"_s);
  while (q.next()) saldos.insert(q.value(0).toInt(), std::round(q.value(1).toDouble() * 100) / 100);
  return saldos;
}
QMap<int, double> SaldosDelBarrido(Connection& c) {
  Transaction t(c);
  if (!mSaldos::RecalcularSaldoClientes(c, 0)) return {};
  const QMap<int, double> saldos = Saldos(c);
  return saldos;  // rolled back: the sweep only tells what it would write
}

}  // namespace

class TestFacturas : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  // Three notes of one client become one CFDi invoice: sealed, valid against the SAT's schema,
  // the notes hold its key; a prompt-payment note settles another invoice of 116; cancelling
  // the first invoice frees its notes. The clients' balances are those the sweep gives.
  void CaminoDeUnaVenta() {
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    Session s = SesionDe(*company);
    Connection c(company->cadena());
    QStringList notas;
    for (const QString& codigo : {u"1-00001"_s, u"1-00002"_s, u"1-00003"_s}) {
      notas << Guardar(s, ventas::Remisiones(), Remision(codigo, 2));
      QVERIFY(!notas.last().isEmpty());
    }
    const std::vector<ventas::RemisionPorFacturar> ofrecidas =
        ventas::RemisionesPorFacturar(c, s.Tienda);
    QVERIFY(ofrecidas.size() >= 3);
    QCOMPARE(ofrecidas[0].remision, notas[2]);  // newest first
    QCOMPARE(ofrecidas[0].cliente, kCliente);

    Documento factura;
    QVERIFY(ventas::DocumentoDeRemisiones(c, notas, &factura));
    QCOMPARE(int(factura.partidas.size()), 3);
    const QString llave = Guardar(s, ventas::Facturas(), factura);
    QVERIFY(!llave.isEmpty());
    QCOMPARE(s.FacturaActual, llave);

    QSqlQuery q = c.Exec(
        u"select status, esquema, depto, total, cliente, receptorrfc, emisorrfc, hora, "
        "(select sum(total) from remisiones where status = ?) from facturas where factura = ?"_s,
        {llave, llave});
    QVERIFY(q.next());
    QCOMPARE(q.value(0).toString(), u"POR COBRAR"_s);
    QCOMPARE(q.value(1).toString(), u"CFDI"_s);
    QCOMPARE(q.value(2).toString(), u"PRODUCTOS"_s);
    QVERIFY(q.value(3).toDouble() > 0);
    QCOMPARE(q.value(3).toDouble(), q.value(8).toDouble());  // the three notes, each its key
    QCOMPARE(q.value(6).toString(), u"EKU9003173C9"_s);
    const QVariant hora = q.value(7);
    q.finish();
    QCOMPARE(Valor(c, u"select count(*) from remisiones where status = ? and facturada = ?"_s,
                   {llave, hora})
                 .toInt(),
             3);

    // The file: the SAT's schema, its cadena by the SAT's sheet, its seal by openssl.
    const QString xml = s.CarpetaXml + u'/' + llave + u".xml"_s;
    QVERIFY2(QFile::exists(xml), qPrintable(xml));
    const testing::Salida xsd = testing::Ejecutar(
        u"xmllint"_s,
        {u"--noout"_s, u"--nonet"_s, u"--schema"_s, s.CarpetaEsquemasCFDi + u"/cfdv32.xsd"_s, xml});
    QVERIFY2(xsd.codigo == 0, xsd.Todo().constData());
    const testing::Salida cadena = testing::Ejecutar(
        u"xsltproc"_s, {s.CarpetaEsquemasCFDi + u"/cadenaoriginal_3_2.xslt"_s, xml});
    edocs::Comprobante guardado;
    QVERIFY(edocs::LeerComprobante(c, u"facturas"_s, u"factura"_s, llave, &guardado));
    QCOMPARE(QString::fromUtf8(cadena.out), guardado.CadenaOriginal);
    QByteArray detalle;
    QVERIFY2(testing::SelloVerifica(guardado, &detalle), detalle.constData());

    // Another invoice of 116, settled by a prompt-payment note.
    const QString otra = Guardar(s, ventas::Facturas(), Libre(u"SERV-01"_s, 100));
    QVERIFY(!otra.isEmpty());
    Documento nota;
    nota.encabezado = {{u"cliente"_s, kCliente}};
    nota.partidas = {{{u"factura"_s, otra}, {u"dppp"_s, u"S"_s}}};
    const QString llave_nota = Guardar(s, ventas::NotasCliente(), nota);
    QVERIFY(!llave_nota.isEmpty());
    QCOMPARE(
        Valor(c, u"select total from \"notas cliente\" where nota = ?"_s, {llave_nota}).toDouble(),
        116.0);
    q = c.Exec(u"select saldo, status from facturas where factura = ?"_s, {otra});
    QVERIFY(q.next());
    QCOMPARE(q.value(0).toDouble(), 0.0);
    QCOMPARE(q.value(1).toString(), u"LIQUIDADO"_s);
    q.finish();
    QVERIFY(QFile::exists(s.CarpetaXml + u'/' + llave_nota + u".xml"_s));
    QCOMPARE(Saldos(c), SaldosDelBarrido(c));

    // Cancelled, the first invoice gives its notes back.
    const Outcome baja = bajas::DarDeBaja(s, u"FACTURAS"_s, llave, u"ERROR DE CAPTURA"_s);
    QVERIFY2(baja.ok, qPrintable(baja.message));
    QCOMPARE(Valor(c,
                   u"select count(*) from remisiones where status = 'POR FACTURAR' and "
                   "remision in (?, ?, ?)"_s,
                   {notas[0], notas[1], notas[2]})
                 .toInt(),
             3);
    QCOMPARE(Saldos(c), SaldosDelBarrido(c));
  }
};

QTEST_GUILESS_MAIN(TestFacturas)
#include "tst_facturas.moc"
