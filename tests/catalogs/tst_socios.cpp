// Clients, suppliers, agents and banks as their screens save them, on both engines: the checks
// in the order a clerk meets them, the duplicate RFC that warns and still saves, the credit
// term of 0 days, the bank account's last four digits, the agents' commission ranges and a
// client's own prices by brand and by product.
#include <map>
#include <memory>

#include <QSqlQuery>
#include <QTest>

#include "catalogs/socios.h"
#include "catalogs/socios_campos.h"
#include "catalogs/socios_filas.h"
#include "catalogs/socios_guardar.h"
#include "catalogs/socios_precios.h"
#include "core/catalogo_nombre.h"
#include "core/database.h"
#include "core/mFunciones.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace ventarix::socios;
using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(ventarix::socios::Socio)

namespace {

QVariant Columna(const Session& s, const QString& tabla, const QString& columna, qint32 numero) {
  Connection c(s.Cadena);
  return c.Scalar(u"select %1 from %2 where numero = ?"_s.arg(columna, tabla), {numero});
}

int Contar(const Session& s, const QString& sentencia, const QVariantList& valores = {}) {
  Connection c(s.Cadena);
  return c.Scalar(sentencia, valores).toInt();
}

Resultado Alta(const Session& s, Socio socio, const Registro& r) {
  return GuardarSocio(s, socio, false, r);
}

}  // namespace

class TestSocios : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  // ---- Field rules, no database ----

  void RfcAlDejar_data() {
    QTest::addColumn<Socio>("socio");
    QTest::addColumn<QString>("tecleado");
    QTest::addColumn<QString>("rfc");
    QTest::addColumn<QString>("fecha");
    QTest::addColumn<QString>("mensaje");
    const QString no = QString::fromUtf8(kRfcNoValido);
    QTest::newRow("empresa con guiones") << Socio::kClientes << u"cdb-850923-qa7"_s
                                         << u"CDB850923QA7"_s << u"23 sep 1985"_s << QString();
    QTest::newRow("persona con puntos y blancos")
        << Socio::kClientes << u"MERJ.800512 K31"_s << u"MERJ800512K31"_s << u"12 may 1980"_s
        << QString();
    QTest::newRow("genérico nacional") << Socio::kClientes << u"XAXX010101000"_s
                                       << u"XAXX010101000"_s << u"01 ene 2001"_s << QString();
    QTest::newRow("31 de febrero pasa") << Socio::kClientes << u"ABC900231XY9"_s
                                        << u"ABC900231XY9"_s << u"31 feb 1990"_s << QString();
    QTest::newRow("11 caracteres sin mensaje")
        << Socio::kClientes << u"CDB850923Q7"_s << u"CDB850923Q7"_s << no << QString();
    QTest::newRow("mes 13") << Socio::kClientes << u"CDB851323QA7"_s << u"CDB851323QA7"_s << no
                            << u"El mes no corresponde al RFC"_s;
    QTest::newRow("proveedor sin fecha") << Socio::kProveedores << u"TFM-020514-AB1"_s
                                         << u"TFM020514AB1"_s << QString() << QString();
  }
  void RfcAlDejar() {
    QFETCH(Socio, socio);
    QFETCH(QString, tecleado);
    QFETCH(QString, rfc);
    QFETCH(QString, fecha);
    QFETCH(QString, mensaje);
    const RevisionRfc revision = RevisarRfc(socio, tecleado);
    QCOMPARE(revision.rfc, rfc);
    QCOMPARE(revision.fecha, fecha);
    QCOMPARE(revision.outcome.message, mensaje);
    if (!mensaje.isEmpty()) QCOMPARE(revision.outcome.icon, MessageIcon::kStop);
  }

  void NumCtaPago_data() {
    QTest::addColumn<QString>("tecleado");
    QTest::addColumn<QString>("queda");
    QTest::newRow("vacío") << QString() << QString();
    QTest::newRow("tres") << u"123"_s << QString();
    QTest::newRow("cuatro") << u"1234"_s << u"1234"_s;
    QTest::newRow("cuenta completa") << u"012180001234567890"_s << u"7890"_s;
    QTest::newRow("con guiones y blancos") << u" 0012-3456-7891 "_s << u"7891"_s;
  }
  void NumCtaPago() {
    QFETCH(QString, tecleado);
    QFETCH(QString, queda);
    QCOMPARE(NumCtaPagoAlDejar(tecleado), queda);
  }

  // ---- The checks of Guardar, one company per engine for the whole table ----

  void Revisiones_data() {
    QTest::addColumn<Socio>("socio");
    QTest::addColumn<bool>("cambio");
    QTest::addColumn<QVariantMap>("cambios");
    QTest::addColumn<QString>("derechos");
    QTest::addColumn<QString>("mensaje");
    QTest::addColumn<QString>("campo");
    QTest::addColumn<QStringList>("avisos");
    const auto fila = [](const char* nombre, Socio socio, QVariantMap cambios, QString mensaje,
                         QString campo, QString derechos = u"SSS"_s, bool cambio = false,
                         QStringList avisos = {}) {
      QTest::newRow(nombre) << socio << cambio << cambios << derechos << mensaje << campo << avisos;
    };
    const Socio kC = Socio::kClientes;
    const QString rfc_cliente = u"El RFC de éste cliente no es válido"_s;
    const QString falta = u"Se requiere la entrada de "_s;
    fila("rfc de 11", kC, {{u"Rfc"_s, u"CDB850923Q7"_s}}, rfc_cliente, u"Rfc"_s);
    fila("rfc con mes 13 avisa antes", kC, {{u"Rfc"_s, u"CDB851323QA7"_s}}, rfc_cliente, u"Rfc"_s,
         u"SSS"_s, false, {u"El mes no corresponde al RFC"_s});
    fila("sin calle", kC, {{u"Calle"_s, u"  "_s}}, falta + u"una nombre de Calle"_s, u"Calle"_s);
    fila("sin no. exterior", kC, {{u"NoExterior"_s, QString()}}, falta + u"un No. Exterior"_s,
         u"NoExterior"_s);
    fila("sin colonia", kC, {{u"Colonia"_s, QString()}}, falta + u"una Colonia"_s, u"Colonia"_s);
    fila("sin localidad", kC, {{u"Localidad"_s, QString()}}, falta + u"una Localidad"_s,
         u"Localidad"_s);
    fila("sin municipio", kC, {{u"Municipio"_s, QString()}}, falta + u"un Municipio"_s,
         u"Municipio"_s);
    fila("sin estado", kC, {{u"Estado"_s, QString()}}, falta + u"un Estado"_s, u"Estado"_s);
    fila("sin país", kC, {{u"Pais"_s, u"'"_s}}, falta + u"un País"_s, u"Pais"_s);
    fila("código postal de 4", kC, {{u"CodigoPostal"_s, u"7600"_s}}, falta + u"un Código Postal"_s,
         u"CodigoPostal"_s);
    fila("crédito negativo", kC, {{u"Credito"_s, u"-1,000"_s}}, falta + u"un Crédito Máximo"_s,
         u"Credito"_s);
    fila("sin agente", kC, {{u"Agente"_s, u"0"_s}}, falta + u"un Agente"_s, u"Agente"_s);
    fila("sin método de pago", kC, {{u"Metodo"_s, QString()}}, falta + u"un Método de Pago"_s,
         u"Metodo"_s);
    fila("el rfc antes que la calle", kC, {{u"Rfc"_s, u"X"_s}, {u"Calle"_s, QString()}},
         rfc_cliente, u"Rfc"_s);
    fila("la calle antes que el código postal", kC,
         {{u"Calle"_s, QString()}, {u"CodigoPostal"_s, QString()}},
         falta + u"una nombre de Calle"_s, u"Calle"_s);
    fila("el país antes que el crédito", kC, {{u"Pais"_s, QString()}, {u"Credito"_s, u"-1"_s}},
         falta + u"un País"_s, u"Pais"_s);
    fila("el agente antes que el método", kC, {{u"Agente"_s, u"0"_s}, {u"Metodo"_s, u"0"_s}},
         falta + u"un Agente"_s, u"Agente"_s);
    fila("sin derecho de alta, antes que el rfc", kC, {{u"Rfc"_s, u"X"_s}},
         u"Este usuario no tiene permisos para el registro de altas"_s, QString(), u"NSS"_s);
    const Socio kP = Socio::kProveedores;
    fila("proveedor con rfc inválido", kP, {{u"Rfc"_s, u"TFM0205"_s}},
         u"El RFC de éste proveedor no es válido"_s, u"Rfc"_s);
    fila("proveedor sin derecho", kP, {},
         u"Este usuario no tiene permisos para el registro de altas"_s, QString(), u"NNN"_s);
    fila("agente sin nombre", Socio::kAgentes, {{u"Nombre"_s, u" "_s}}, falta + u"un Nombre"_s,
         u"Nombre"_s);
    fila("banco sin nombre", Socio::kBancos, {{u"Nombre"_s, QString()}}, falta + u"un Nombre"_s,
         u"Nombre"_s);
    fila("banco sin derecho de cambio", Socio::kBancos, {},
         u"Este usuario no tiene permisos para cambios de registros"_s, QString(), u"SSN"_s, true);
  }
  void Revisiones() {
    QFETCH(Socio, socio);
    QFETCH(bool, cambio);
    QFETCH(QVariantMap, cambios);
    QFETCH(QString, derechos);
    QFETCH(QString, mensaje);
    QFETCH(QString, campo);
    QFETCH(QStringList, avisos);
    testing::TestCompany* company = Compania();
    if (company == nullptr) return;
    Session s = company->MakeSession();
    testing::DerechosDeSocios(s, derechos);

    // Row 1 of each table is there to be changed; none of these saves may touch anything.
    const QString tabla = QString::fromLatin1(FamiliaDe(socio).tabla);
    const int antes = Contar(s, u"select count(*) from "_s + tabla);
    const QString nombre = Columna(s, tabla, u"nombre"_s, 1).toString();
    Registro r =
        socio == Socio::kProveedores ? testing::ProveedorValido() : testing::ClienteValido();
    r.valores.Set(u"Tienda"_s, 1);
    r.valores.Set(u"Nombre"_s, u"OTRO NOMBRE"_s);
    r.valores.Set(u"Rfc"_s, u"GOMR750101AB2"_s);  // no one else's
    for (auto it = cambios.cbegin(); it != cambios.cend(); ++it) r.valores.Set(it.key(), *it);
    r.numero = cambio ? 1 : antes + 1;

    const Resultado resultado = GuardarSocio(s, socio, cambio, r);
    QVERIFY(!resultado.outcome);
    QCOMPARE(resultado.outcome.message, mensaje);
    QCOMPARE(resultado.outcome.field, campo);
    QCOMPARE(resultado.outcome.icon, MessageIcon::kWarning);
    QStringList vistos;
    for (const Outcome& aviso : resultado.avisos) vistos << aviso.message;
    QCOMPARE(vistos, avisos);
    QCOMPARE(Contar(s, u"select count(*) from "_s + tabla), antes);
    QCOMPARE(Columna(s, tabla, u"nombre"_s, 1).toString(), nombre);
  }

  // ---- Saving ----

  // A clerk adds a client as typed: the RFC loses its hyphens, the amount its commas, the
  // e-mail goes to lower case, the bank account keeps its last four digits; the add screen
  // writes no addenda; the next client takes the next number. The RFC of another client
  // warns with that client's number and the save goes on; a row is not its own duplicate.
  void AltaDeCliente() {
    VENTARIX_SOCIOS(company, s);
    QCOMPARE(NumeroPropuesto(s, Socio::kClientes), 1);
    Registro r = testing::ClienteValido();
    r.valores.Set(u"Addenda"_s, u"COPPEL"_s);
    const Resultado primero = Alta(s, Socio::kClientes, r);
    QVERIFY2(primero.outcome, qPrintable(primero.outcome.message));
    QVERIFY(primero.avisos.empty());
    QCOMPARE(primero.numero, 1);
    const auto fila = LeerCatalogo(s, Catalogo::kClientes, 1);
    QVERIFY(fila);
    QCOMPARE(fila->Text(u"rfc"_s), u"CDB850923QA7"_s);
    QCOMPARE(fila->Number(u"credito"_s), 50000.0);
    QCOMPARE(fila->Integer(u"plazo"_s), 30);
    QCOMPARE(fila->Text(u"numctapago"_s), u"7890"_s);
    QCOMPARE(fila->Text(u"email1"_s), u"compras@bajio.example"_s);
    QCOMPARE(fila->Text(u"addenda"_s), QString());
    QCOMPARE(fila->Text(u"status"_s), u"ALTA"_s);

    // Same RFC; a credit term of 0 days, or of what reads as 0, is kept as 1.
    r.valores.Set(u"Nombre"_s, u"SUCURSAL NORTE"_s);
    r.valores.Set(u"Plazo"_s, u"abc"_s);
    r.numero = 2;
    const Resultado segundo = Alta(s, Socio::kClientes, r);
    QVERIFY(segundo.outcome);
    QCOMPARE(segundo.numero, 2);
    QCOMPARE(segundo.avisos.size(), std::size_t{1});
    QCOMPARE(segundo.avisos[0].message,
             u"Este RFC se encuentra registrado con el número de cliente 1"_s);
    QCOMPARE(segundo.avisos[0].field, u"Rfc"_s);
    QCOMPARE(segundo.avisos[0].icon, MessageIcon::kWarning);
    QCOMPARE(Contar(s, u"select count(*) from clientes where rfc = 'CDB850923QA7'"_s), 2);
    QCOMPARE(Columna(s, u"clientes"_s, u"plazo"_s, 2).toInt(), 1);
    QCOMPARE(NumeroPropuesto(s, Socio::kClientes), 3);

    r.valores.Set(u"Rfc"_s, u"MERJ800512K31"_s);
    const Resultado cambio = GuardarSocio(s, Socio::kClientes, true, r);
    QVERIFY(cambio.outcome);
    QVERIFY(cambio.avisos.empty());
  }

  // The change screen writes what the add screen leaves alone (addenda, the supplier's key)
  // and the status label's word; a client in legal collection is seen by the sale screens;
  // a supplier's RFC warns like a client's.
  void CambioDeClienteYProveedor() {
    VENTARIX_SOCIOS(company, s);
    QVERIFY(Alta(s, Socio::kClientes, testing::ClienteValido()).outcome);
    Registro r;
    QVERIFY(LeerSocio(s, Socio::kClientes, 1, &r));
    QCOMPARE(r.status, u"ALTA"_s);
    QCOMPARE(r.valores.Text(u"rfc"_s), u"CDB850923QA7"_s);
    QVERIFY(!mFunciones::EsJuridico(s, 1));
    r.valores.Set(u"Addenda"_s, u"QUALITAS"_s);
    r.valores.Set(u"Juridico"_s, u"S"_s);
    r.valores.Set(u"NumCtaPago"_s, u"12"_s);
    r.valores.Set(u"Plazo"_s, u"0"_s);
    r.status = StatusAlternado(r.status);
    const Resultado cambio = GuardarSocio(s, Socio::kClientes, true, r);
    QVERIFY2(cambio.outcome, qPrintable(cambio.outcome.message));
    QCOMPARE(Columna(s, u"clientes"_s, u"addenda"_s, 1).toString(), u"QUALITAS"_s);
    QCOMPARE(Columna(s, u"clientes"_s, u"status"_s, 1).toString(), u"BAJA"_s);
    QCOMPARE(Columna(s, u"clientes"_s, u"numctapago"_s, 1).toString(), QString());
    QCOMPARE(Columna(s, u"clientes"_s, u"plazo"_s, 1).toInt(), 1);
    QVERIFY(mFunciones::EsJuridico(s, 1));

    Registro proveedor = testing::ProveedorValido();
    proveedor.valores.Set(u"Clave"_s, u"PRV-001"_s);
    QVERIFY(Alta(s, Socio::kProveedores, proveedor).outcome);
    QCOMPARE(Columna(s, u"proveedores"_s, u"clave"_s, 1).toString(), QString());
    proveedor.numero = 2;
    const Resultado repetido = Alta(s, Socio::kProveedores, proveedor);
    QVERIFY(repetido.outcome);
    QCOMPARE(repetido.avisos.size(), std::size_t{1});
    QCOMPARE(repetido.avisos[0].message,
             u"Este RFC se encuentra registrado con el número de proveedor 1"_s);
    proveedor.numero = 1;
    proveedor.valores.Set(u"Credito"_s, u"-5"_s);  // no credit check for suppliers
    proveedor.valores.Set(u"Plazo"_s, u"0"_s);
    QVERIFY(GuardarSocio(s, Socio::kProveedores, true, proveedor).outcome);
    QCOMPARE(Columna(s, u"proveedores"_s, u"clave"_s, 1).toString(), u"PRV-001"_s);
    QCOMPARE(Columna(s, u"proveedores"_s, u"credito"_s, 1).toDouble(), -5.0);
    QCOMPARE(Columna(s, u"proveedores"_s, u"plazo"_s, 1).toInt(), 1);

    proveedor.numero = 9;
    const Resultado perdido = GuardarSocio(s, Socio::kProveedores, true, proveedor);
    QCOMPARE(perdido.outcome.message, u"No existe el proveedor número 9"_s);
  }

  // An agent's ranges are captured on the change screen: the add screen leaves them at 0.
  void ComisionesDelAgente() {
    VENTARIX_SOCIOS(company, s);
    Registro r;
    r.valores.Set(u"Nombre"_s, u"PATRICIA NÚÑEZ ORTEGA"_s);
    r.valores.Set(u"Rfc"_s, u"NUOP820607HM3"_s);
    r.valores.Set(u"Comision"_s, u"3"_s);
    r.valores.Set(u"Tienda"_s, u"2"_s);
    r.valores.Set(u"Dias2"_s, u"30"_s);
    r.valores.Set(u"Comision1"_s, u"3"_s);
    const Resultado alta = Alta(s, Socio::kAgentes, r);
    QVERIFY2(alta.outcome, qPrintable(alta.outcome.message));
    QCOMPARE(alta.numero, 3);
    QCOMPARE(Columna(s, u"agentes"_s, u"dias2"_s, 3).toInt(), 0);
    QCOMPARE(Columna(s, u"agentes"_s, u"tienda"_s, 3).toInt(), 2);

    QVERIFY(LeerSocio(s, Socio::kAgentes, 3, &r));
    const QStringList rangos = {u"0"_s,  u"30"_s, u"3"_s,     u"31"_s, u"60"_s,    u"1.5"_s,
                                u"61"_s, u"90"_s, u"0.755"_s, u"91"_s, u"9,999"_s, u"0"_s};
    int i = 0;
    for (const Campo* campo : Campos(FamiliaDe(Socio::kAgentes), true)) {
      if (campo->solo_cambio) r.valores.Set(QString::fromLatin1(campo->columna), rangos[i++]);
    }
    QCOMPARE(i, 12);
    QVERIFY(GuardarSocio(s, Socio::kAgentes, true, r).outcome);
    const auto agente = LeerCatalogo(s, Catalogo::kAgentes, 3);
    QVERIFY(agente);
    QCOMPARE(agente->Integer(u"dias8"_s), 9999);
    QCOMPARE(agente->Number(u"comision3"_s), 0.76);
    // The percent of the range an invoice's age falls in; outside every range, nothing.
    const int dias[] = {0, 30, 31, 75, 9999, 10000, -1};
    const double comisiones[] = {3, 3, 1.5, 0.76, 0, 0, 0};
    for (int k = 0; k < 7; ++k) QCOMPARE(ComisionPorDias(*agente, dias[k]), comisiones[k]);
  }

  // A client's price levels by brand and own prices by product: written from the grids in
  // the grids' order, read back in the screen's order, left alone when the grids did not
  // change, and refused whole on a wrong level or an unknown code.
  void PreciosDelCliente() {
    VENTARIX_SOCIOS(company, s);
    QVERIFY(Alta(s, Socio::kClientes, testing::ClienteValido()).outcome);
    Registro r;
    QVERIFY(LeerSocio(s, Socio::kClientes, 1, &r));
    PreciosCliente precios;
    QVERIFY(LeerPreciosCliente(s, 1, &precios));
    QCOMPARE(precios.marcas.size(), std::size_t{3});
    QCOMPARE(precios.marcas[1].nombre, u"URREA"_s);
    QCOMPARE(precios.marcas[1].utilidades[2], 35.0);
    QCOMPARE(precios.marcas[1].nivel, 0);
    QVERIFY(precios.productos.empty());

    precios.marcas[0].nivel = 3;
    precios.marcas[0].dcto = 5.5;
    precios.marcas[1].dcto = 10;  // no level: not written
    precios.marcas[2].nivel = 5;
    PrecioProducto martillo;
    QVERIFY(BuscarProducto(s, u"7501206610"_s, &martillo));  // by its alternate code
    QCOMPARE(martillo.codigo, u"MAR-16"_s);
    QCOMPARE(martillo.producto, u"MARTILLO 16 OZ"_s);
    martillo.precio = 101.123456;
    precios.productos = {{u"DES-6"_s, {}, 70}, {}, martillo};
    QVERIFY(GuardarSocio(s, Socio::kClientes, true, r, &precios).outcome);
    QCOMPARE(Contar(s, u"select count(*) from \"clientes utilidades\" where cliente = 1"_s), 2);
    QCOMPARE(Contar(s, u"select item from \"productos precios\" where codigo = 'MAR-16'"_s), 2);

    PreciosCliente leidos;
    QVERIFY(LeerPreciosCliente(s, 1, &leidos));
    QCOMPARE(leidos.marcas[0].nivel, 3);
    QCOMPARE(leidos.marcas[0].dcto, 5.5);
    QCOMPARE(leidos.marcas[1].nivel, 0);
    QCOMPARE(leidos.marcas[1].dcto, 0.0);
    QCOMPARE(leidos.marcas[2].nivel, 5);
    QCOMPARE(leidos.productos.size(), std::size_t{2});
    QCOMPARE(leidos.productos[0].codigo, u"MAR-16"_s);  // brand 1 before brand 2
    QCOMPARE(leidos.productos[0].precio, 101.1235);
    QCOMPARE(leidos.productos[1].producto, u"DESARMADOR PLANO 6 PULG"_s);

    // Another client's prices stay when this one's grids are emptied.
    Registro otro = testing::ClienteValido();
    otro.valores.Set(u"Rfc"_s, u"MERJ800512K31"_s);
    QVERIFY(Alta(s, Socio::kClientes, otro).outcome);
    otro.numero = 2;
    QVERIFY(GuardarSocio(s, Socio::kClientes, true, otro, &leidos).outcome);
    r.valores.Set(u"Nombre"_s, u"SIN CAMBIO DE PRECIOS"_s);
    QVERIFY(GuardarSocio(s, Socio::kClientes, true, r).outcome);
    QCOMPARE(Contar(s, u"select count(*) from \"clientes utilidades\" where cliente = 1"_s), 2);

    PreciosCliente malo = leidos;
    malo.marcas[1].nivel = 7;
    r.valores.Set(u"Nombre"_s, u"NO SE GUARDA"_s);
    Resultado refusal = GuardarSocio(s, Socio::kClientes, true, r, &malo);
    QCOMPARE(refusal.outcome.message,
             u"Se requiere un nivel de precio de 1 a 5 para la marca URREA"_s);
    QCOMPARE(refusal.outcome.field, u"Marcas"_s);
    malo = leidos;
    malo.productos.push_back({u"NO-EXISTE"_s, {}, 5});
    refusal = GuardarSocio(s, Socio::kClientes, true, r, &malo);
    QCOMPARE(refusal.outcome.message, u"Este código no existe en productos: NO-EXISTE"_s);
    QCOMPARE(Columna(s, u"clientes"_s, u"nombre"_s, 1).toString(), u"SIN CAMBIO DE PRECIOS"_s);
    QCOMPARE(Contar(s, u"select count(*) from \"productos precios\" where cliente = 1"_s), 2);

    PreciosCliente vacio = leidos;
    for (UtilidadMarca& marca : vacio.marcas) marca.nivel = 0;
    vacio.productos.clear();
    QVERIFY(GuardarSocio(s, Socio::kClientes, true, r, &vacio).outcome);
    QCOMPARE(Contar(s, u"select count(*) from \"clientes utilidades\" where cliente = 1"_s), 0);
    QCOMPARE(Contar(s, u"select count(*) from \"productos precios\" where cliente = 1"_s), 0);
    QCOMPARE(Contar(s, u"select count(*) from \"clientes utilidades\" where cliente = 2"_s), 2);
    QCOMPARE(Contar(s, u"select count(*) from \"productos precios\" where cliente = 2"_s), 2);
  }

 private:
  // One company per engine for the checks, which write nothing: a client, supplier, agent
  // and bank numbered 1 to be changed.
  testing::TestCompany* Compania() {
    QFETCH_GLOBAL(QString, engine);
    std::unique_ptr<testing::TestCompany>& company = companias_[engine];
    if (!company) {
      company = std::make_unique<testing::TestCompany>(engine);
      if (company->ok() && !Preparar(*company)) {
        QTest::qFail("the partner rows could not be written", __FILE__, __LINE__);
        return nullptr;
      }
    }
    if (company->skipped()) {
      QTest::qSkip("VENTARIX_TEST_PG is not set", __FILE__, __LINE__);
      return nullptr;
    }
    if (!company->ok()) {
      QTest::qFail(qPrintable(company->error()), __FILE__, __LINE__);
      return nullptr;
    }
    return company.get();
  }

  static bool Preparar(const testing::TestCompany& company) {
    if (!testing::PrepararSocios(company.cadena())) return false;
    Session s = company.MakeSession();
    testing::DerechosDeSocios(s, u"SSS"_s);
    return Alta(s, Socio::kClientes, testing::ClienteValido()).outcome &&
           Alta(s, Socio::kProveedores, testing::ProveedorValido()).outcome;
  }

  std::map<QString, std::unique_ptr<testing::TestCompany>> companias_;
};

QTEST_GUILESS_MAIN(TestSocios)
#include "tst_socios.moc"
