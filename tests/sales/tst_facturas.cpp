// Invoices and client credit notes saved through the capture engine on the demo company: the
// road of one sale from three delivery notes to a sealed CFDi invoice, its prompt-payment
// credit note and its cancellation, and the invoice's own rules.
#include <QFile>
#include <QSqlQuery>
#include <QTest>

#include "core/dialect.h"
#include "core/session_load.h"
#include "documents/bajas.h"
#include "documents/captura.h"
#include "documents/mSaldos.h"
#include "edocs/cfdi_xml.h"
#include "edocs/herramientas.h"
#include "sales/cuentas_por_cobrar.h"
#include "sales/facturar_remisiones.h"
#include "sales/familias_ventas.h"
#include "support/document_rows.h"
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

double Numero(Connection& c, const QString& sql, const QVariantList& valores = {}) {
  return c.Scalar(sql, valores).toDouble();
}
QString Texto(Connection& c, const QString& sql, const QVariantList& valores = {}) {
  return c.Scalar(sql, valores).toString();
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
  // the notes hold its key; a prompt-payment note settles another invoice of 116, two receipts
  // a third; cancelling the first invoice frees its notes. The clients' balances are those the
  // sweep gives.
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
    // Newer still, a quotation's note and another store's are not offered.
    Documento cotizada = Remision(u"1-00004"_s, 1);
    cotizada.encabezado.insert(u"tipo"_s, u"COTIZACION"_s);
    Session otra_tienda = s;
    otra_tienda.Tienda = s.Tienda == 2 ? 3 : 2;
    QVERIFY(!Guardar(s, ventas::Remisiones(), cotizada).isEmpty());
    QVERIFY(!Guardar(otra_tienda, ventas::Remisiones(), Remision(u"1-00004"_s, 1)).isEmpty());
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
    QCOMPARE(Numero(c, u"select count(*) from remisiones where status = ? and facturada = ?"_s,
                    {llave, hora}),
             3.0);
    // The goods invoiced from the notes were last sold on the invoice's day.
    const auto dia = [&c](const QString& sql, const QVariantList& valores) {
      return dialect::ReadDate(c.Scalar(sql, valores)).date();
    };
    QCOMPARE(
        dia(u"select \"fecha ultima venta\" from productos where codigo = ?"_s, {u"1-00003"_s}),
        dia(u"select fecha from facturas where factura = ?"_s, {llave}));

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
    QCOMPARE(Numero(c, u"select total from \"notas cliente\" where nota = ?"_s, {llave_nota}),
             116.0);
    q = c.Exec(u"select saldo, status from facturas where factura = ?"_s, {otra});
    QVERIFY(q.next());
    QCOMPARE(q.value(0).toDouble(), 0.0);
    QCOMPARE(q.value(1).toString(), u"LIQUIDADO"_s);
    q.finish();
    QVERIFY(QFile::exists(s.CarpetaXml + u'/' + llave_nota + u".xml"_s));
    QCOMPARE(Saldos(c), SaldosDelBarrido(c));

    // A third is collected: a receipt pays part, a second the rest (F8's whole balance).
    const QString cobrada = Guardar(s, ventas::Facturas(), Libre(u"SERV-01"_s, 100));
    QVERIFY(!cobrada.isEmpty());
    for (const double abono : {50.0, 66.0}) {
      Documento recibo;
      recibo.encabezado = {{u"cliente"_s, kCliente},
                           {u"metodo"_s, 1},
                           {u"banco"_s, 1},
                           {u"anotacion"_s, u"DEPOSITO"_s}};
      recibo.partidas = {{{u"factura"_s, cobrada}, {u"abono"_s, abono}}};
      QVERIFY(!Guardar(s, ventas::CxC(), recibo).isEmpty());
    }
    q = c.Exec(u"select saldo, status from facturas where factura = ?"_s, {cobrada});
    QVERIFY(q.next());
    QCOMPARE(q.value(0).toDouble(), 0.0);
    QCOMPARE(q.value(1).toString(), u"LIQUIDADO"_s);
    q.finish();
    QCOMPARE(Saldos(c), SaldosDelBarrido(c));

    // Cancelled, the first invoice gives its notes back.
    const Outcome baja = bajas::DarDeBaja(s, u"FACTURAS"_s, llave, u"ERROR DE CAPTURA"_s);
    QVERIFY2(baja.ok, qPrintable(baja.message));
    QCOMPARE(Numero(c,
                    u"select count(*) from remisiones where status = 'POR FACTURAR' and "
                    "remision in (?, ?, ?)"_s,
                    {notas[0], notas[1], notas[2]}),
             3);
    QCOMPARE(Saldos(c), SaldosDelBarrido(c));
  }

  // The invoice's own rules: the rate of a foreign currency, pesos at 1, retentions off the
  // total, a free invoice moving no stock, a change, and a folio the range moved onto a taken
  // key.
  void ReglasDeLaFactura() {
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    Session s = SesionDe(*company);
    Connection c(company->cadena());
    const auto contar = [&c] { return Numero(c, u"select count(*) from facturas"_s); };
    const double antes = contar();
    const captura::Guardado en_uno = captura::GuardarDocumento(
        s, ventas::Facturas(),
        Libre(u"SERV-01"_s, 100, {{u"moneda"_s, u"USD"_s}, {u"tipocambio"_s, 1}}));
    QCOMPARE(en_uno.outcome.message,
             u"Se requiere un tipo de cambio mayor a 1 para la moneda USD"_s);
    QCOMPARE(contar(), antes);

    const QString dolares =
        Guardar(s, ventas::Facturas(),
                Libre(u"SERV-01"_s, 100, {{u"moneda"_s, u"USD"_s}, {u"tipocambio"_s, 1.0001}}));
    const QString pesos =
        Guardar(s, ventas::Facturas(),
                Libre(u"SERV-01"_s, 100, {{u"moneda"_s, u"MXN"_s}, {u"tipocambio"_s, 19.5}}));
    const QString retenida =
        Guardar(s, ventas::Facturas(), Libre(u"SERV-01"_s, 100, {{u"retencion isr $"_s, 10}}));
    QVERIFY(!dolares.isEmpty() && !pesos.isEmpty() && !retenida.isEmpty());
    const auto columna = [&c](const QString& llave, const QString& col) {
      return c.Scalar(u"select "_s + col + u" from facturas where factura = ?"_s, {llave});
    };
    QCOMPARE(columna(dolares, u"tipocambio"_s).toDouble(), 1.0001);
    QCOMPARE(columna(dolares, u"moneda"_s).toString(), u"USD"_s);
    QCOMPARE(columna(pesos, u"tipocambio"_s).toDouble(), 1.0);
    QCOMPARE(columna(retenida, u"total"_s).toDouble(), 106.0);
    QCOMPARE(columna(retenida, u"\"retencion isr $\""_s).toDouble(), 10.0);

    // A free invoice of a product: neither its stock nor its last sale move; an unknown code
    // stays as a row in "PIEZA".
    const auto producto = [&c] {
      const QString donde = u" from productos where codigo = '1-00001'"_s;
      return Texto(c, u"select \"fecha ultima venta\""_s + donde) + u'|' +
             QString::number(Numero(c, u"select almacen1"_s + donde));
    };
    const QString antes_producto = producto();
    QVERIFY(!Guardar(s, ventas::Facturas(), Libre(u"1-00001"_s, 50)).isEmpty());
    QCOMPARE(producto(), antes_producto);
    QCOMPARE(Texto(c, u"select unidad from \"facturas detalles\" where factura = ?"_s, {pesos}),
             u"PIEZA"_s);

    // A change seals again under its key: another client (both balances follow), the summary
    // text emptied (its row goes).
    const QString llave = Guardar(s, ventas::Facturas(),
                                  Libre(u"SERV-01"_s, 100, {{u"descripcion"_s, u"SERVICIOS"_s}}));
    QVERIFY(!llave.isEmpty());
    const auto resumenes = [&] {
      return Numero(c, u"select count(*) from \"facturas resumen\" where factura = ?"_s, {llave});
    };
    QCOMPARE(resumenes(), 1.0);
    captura::Leido leido = captura::LeerDocumento(s, ventas::Facturas(), llave);
    QVERIFY(leido.outcome.ok && leido.modificable);
    leido.documento.encabezado.insert(u"cliente"_s, 3);
    leido.documento.encabezado.insert(u"descripcion"_s, QString());
    leido.documento.partidas[0].insert(u"precio"_s, 200);
    QCOMPARE(Guardar(s, ventas::Facturas(), leido.documento), llave);
    QCOMPARE(resumenes(), 0.0);
    QCOMPARE(Numero(c, u"select receptorcliente from facturas where factura = ?"_s, {llave}), 3.0);
    QCOMPARE(Saldos(c), SaldosDelBarrido(c));

    // The range moves folio 1 to its first one, whose key another document holds already.
    QVERIFY(testing::Escribir(c,
                              u"update \"folios facturas\" set serie = 'E', folioinicial = 501, "
                              "foliofinal = 600 where numero = ?"_s,
                              {s.FolioFacturas}));
    QVERIFY(testing::InsertarFila(
        c, u"facturas"_s, {{u"factura"_s, u"E-501"_s}, {u"serie"_s, u"X"_s}, {u"folio"_s, 1}}));
    const double con_otra = contar();
    const captura::Guardado chocada =
        captura::GuardarDocumento(s, ventas::Facturas(), Libre(u"SERV-01"_s, 100));
    QCOMPARE(chocada.outcome.message,
             u"Esta serie y folio de factura ya existe en el sistema\n\nE-501"_s);
    QCOMPARE(chocada.outcome.field, u"Datos0"_s);
    QCOMPARE(contar(), con_otra);
  }

  // A credit note over two invoices: a unit of the first one's goods back into the user's
  // store, a discount on the second, and a row on a key that is no invoice; each invoice is
  // reduced by its own rows, the free row only by the note's total.
  void NotaSobreDosFacturas() {
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    Session s = SesionDe(*company);
    s.Tienda = 2;
    Connection c(company->cadena());
    const QString codigo = u"1-00005"_s;
    const auto existencia = [&] {
      return Numero(c, u"select almacen2 from productos where codigo = ?"_s, {codigo});
    };
    Documento de_producto = Libre(codigo, 100);
    de_producto.partidas[0].insert(u"cantidad"_s, 3);
    const QString primera = Guardar(s, ventas::Facturas(), de_producto);
    const QString segunda = Guardar(s, ventas::Facturas(), Libre(u"SERV-01"_s, 100));
    QVERIFY(!primera.isEmpty() && !segunda.isEmpty());
    const double antes = existencia();
    Documento nota;
    nota.encabezado = {{u"cliente"_s, kCliente}};
    nota.partidas = {{{u"factura"_s, primera}, {u"codigo"_s, codigo}, {u"cantidad"_s, 1}},
                     {{u"factura"_s, segunda}, {u"dppp"_s, u"S"_s}, {u"precio"_s, 50}},
                     Libre(u"flete"_s, 10).partidas[0]};
    nota.partidas[2].insert(u"factura"_s, u"NO-1"_s);
    nota.partidas[2].insert(u"unidad"_s, u"viaje"_s);
    const QString llave = Guardar(s, ventas::NotasCliente(), nota);
    QVERIFY(!llave.isEmpty());
    QCOMPARE(existencia(), antes + 1);
    const auto descuentos = [&](const QString& factura) {
      return Numero(c, u"select descuentos from facturas where factura = ?"_s, {factura});
    };
    QCOMPARE(descuentos(primera), 116.0);
    QCOMPARE(descuentos(segunda), 58.0);
    QCOMPARE(Numero(c, u"select total from \"notas cliente\" where nota = ?"_s, {llave}),
             116.0 + 58.0 + 11.6);
    QCOMPARE(Texto(c,
                   u"select codigo from \"notas cliente detalles\" where nota = ? and factura "
                   "= 'NO-1'"_s,
                   {llave}),
             u"FLETE"_s);
    QCOMPARE(Saldos(c), SaldosDelBarrido(c));
  }
};

QTEST_GUILESS_MAIN(TestFacturas)
#include "tst_facturas.moc"
