// The look-ups behind F1 on both engines: every keyword's list runs and fills its columns,
// searches narrow the list by number or by text and "*" brings it all back, typed quotes
// travel as values, big catalogues open on the first brand, folio ranges count what they have
// left.
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTest>

#include "core/ayuda.h"
#include "core/database.h"
#include "core/dialect.h"
#include "support/document_rows.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using ayuda::ParametrosAyuda;
using ayuda::PeticionAyuda;

namespace {

// Rows with the named columns, one list of values each; the other columns take values the
// column rules accept.
bool Insertar(Connection& c, const QString& tabla, const QStringList& columnas,
              const QList<QVariantList>& filas) {
  for (const QVariantList& valores : filas) {
    QVariantMap fila;
    for (int i = 0; i < columnas.size(); ++i) fila.insert(columnas[i], valores.value(i));
    QString error;
    if (!testing::InsertarFila(c, tabla, fila, &error)) {
      qWarning() << tabla << error;
      return false;
    }
  }
  return true;
}

// Four clients, two suppliers, three brands and three products of a small hardware shop.
bool Catalogos(Connection& c) {
  const QStringList socio{u"numero"_s, u"nombre"_s, u"rfc"_s, u"tipo"_s, u"saldo"_s};
  return Insertar(c, u"clientes"_s, socio,
                  {{1, u"FERRETERIA LA PALMA"_s, u"FLP010203AB1"_s, u"CONTADO"_s, 100.5},
                   {2, u"RAMIREZ Y HNOS"_s, u"RAH990101XY2"_s, u"CREDITO"_s, 0},
                   {3, u"O'BRIEN_SA"_s, u"OBR800101AA1"_s, u"CREDITO"_s, 0},
                   {10, u"MATERIALES RAMOS 100%"_s, u"MRA850505BB2"_s, u"CONTADO"_s, 0}}) &&
         Insertar(c, u"proveedores"_s, socio,
                  {{1, u"ACEROS DEL NORTE"_s, u"ANO010101AAA"_s, u"CREDITO"_s, 0},
                   {2, u"PINTURAS SOL"_s, u"PSO020202BBB"_s, u"CREDITO"_s, 0}}) &&
         Insertar(c, u"marcas"_s, {u"numero"_s, u"nombre"_s},
                  {{1, u"TRUPER"_s}, {2, u"URREA"_s}}) &&
         Insertar(c, u"productos"_s,
                  {u"codigo"_s, u"marca"_s, u"producto"_s, u"pt"_s, u"almacen1"_s, u"ubicacion"_s},
                  {{u"B-1"_s, 1, u"ZAPAPICO"_s, u"N"_s, 5, u"P1"_s},
                   {u"A-2"_s, 1, u"MARTILLO"_s, u"S"_s, 7, u"P1"_s},
                   {u"C-3"_s, 2, u"ALAMBRE"_s, u"N"_s, 2, u"P2"_s}});
}

// Open invoices and purchases, folio ranges and the documents that used them.
bool Documentos(Connection& c) {
  const QStringList folios{u"numero"_s,     u"serie"_s,  u"folioinicial"_s,
                           u"foliofinal"_s, u"status"_s, u"esquema"_s};
  const QDate fecha(2014, 3, 5);
  const QString cobrar = u"POR COBRAR"_s;
  return Insertar(c, u"facturas"_s,
                  {u"factura"_s, u"serie"_s, u"folio"_s, u"cliente"_s, u"status"_s, u"ingreso"_s,
                   u"periodo"_s, u"fecha"_s, u"saldo"_s},
                  {{u"B-1"_s, u"B"_s, 1, 1, cobrar, 2, 2014, fecha, 50},
                   {u"A-1"_s, u"A"_s, 1, 1, cobrar, 1, 2013, QDate(2013, 11, 20), 300},
                   {u"A-2"_s, u"A"_s, 2, 1, u"LIQUIDADO"_s, 1, 2014, fecha, 0},
                   {u"A-3"_s, u"A"_s, 3, 2, cobrar, 1, 2014, fecha, 80}}) &&
         Insertar(c, u"folios facturas"_s, folios,
                  {{1, u"A"_s, 1, 100, u"ALTA"_s, u"CFDI"_s},
                   {2, u"B"_s, 1, 50, u"ALTA"_s, u"CFDI"_s},
                   {3, u"C"_s, 1, 10, u"BAJA"_s, u"CFD"_s}}) &&
         Insertar(c, u"folios notas"_s, folios, {{1, u"NC"_s, 1, 10, u"ALTA"_s, u"CFDI"_s}}) &&
         Insertar(c, u"notas cliente"_s,
                  {u"nota"_s, u"serie"_s, u"folio"_s, u"cliente"_s, u"egreso"_s},
                  {{u"NC-1"_s, u"NC"_s, 1, 1, 1}}) &&
         Insertar(c, u"compras"_s,
                  {u"compra"_s, u"serie"_s, u"folio"_s, u"proveedor"_s, u"status"_s, u"factura"_s,
                   u"total"_s},
                  {{u"C-1"_s, u"C"_s, 1, 1, u"POR PAGAR"_s, u"F881"_s, 1160}}) &&
         Insertar(c, u"facturas detalles"_s,
                  {u"factura"_s, u"item"_s, u"codigo"_s, u"cantidad"_s, u"precio"_s},
                  {{u"A-1"_s, 1, u"B-1"_s, 2, 150}});
}

// Every row of the look-up's list, each column as text; `ok` false when the statement failed.
QList<QStringList> Filas(const Session& session, const PeticionAyuda& peticion,
                         bool* ok = nullptr) {
  Connection c(session.Cadena);
  QSqlQuery q = c.Exec(peticion.sentencia, peticion.valores);
  if (ok != nullptr) *ok = q.isActive();
  if (!q.isActive()) qWarning() << peticion.sentencia << QueryError(q);
  QList<QStringList> filas;
  while (q.next()) {
    QStringList fila;
    for (int i = 0; i < q.record().count(); ++i) fila << q.value(i).toString();
    filas << fila;
  }
  return filas;
}

// The first column of every row, joined by commas: what a person reads down the list.
QString Llaves(const Session& session, const PeticionAyuda& peticion) {
  QStringList llaves;
  for (const QStringList& fila : Filas(session, peticion)) llaves << fila.value(0);
  return llaves.join(u',');
}

PeticionAyuda Pedir(const Session& session, const QString& palabra,
                    const ParametrosAyuda& parametros = {}) {
  const std::optional<PeticionAyuda> peticion = ayuda::Peticion(session, palabra, parametros);
  if (!peticion) qWarning() << "no look-up for" << palabra;
  return peticion.value_or(PeticionAyuda{});
}

PeticionAyuda Buscado(const Session& session, const PeticionAyuda& peticion, int tecla,
                      const QString& respuesta) {
  const ayuda::BusquedaAyuda* busqueda = ayuda::BusquedaDeTecla(peticion, tecla);
  if (busqueda == nullptr) return peticion;
  const Engine engine = session.Sql ? Engine::kPostgres : Engine::kSqlite;
  return ayuda::Buscar(peticion, ayuda::BusquedaEnAyuda(engine, *busqueda, respuesta));
}

}  // namespace

class TestAyuda : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  // Every keyword gives a list whose statement runs, with one caption per column it reads and
  // one value per placeholder; in lower case it is the same look-up. Also with a big
  // catalogue and a user bound to some invoice series, which add their own conditions.
  void CadaPalabraCorre() {
    VENTARIX_COMPANY(company);
    Session session = company.MakeSession();
    {
      Connection c(session.Cadena);
      QVERIFY(Catalogos(c) && Documentos(c));
    }
    ParametrosAyuda parametros;
    parametros.cliente = 1;
    parametros.proveedor = 1;
    parametros.documento = u"FACTURAS"_s;
    parametros.tabla = u"facturas"_s;
    parametros.factura = u"A-1"_s;
    for (int vuelta = 0; vuelta < 2; ++vuelta) {
      if (vuelta == 1) {
        session.MuchosProductos = true;
        session.usuario.Set(u"AplicarSeriesEnFacturas"_s, u"S"_s);
        session.usuario.Set(u"SerieFacturacion1"_s, u"A"_s);
      }
      for (const QString& palabra : ayuda::Palabras()) {
        const std::optional<PeticionAyuda> p = ayuda::Peticion(session, palabra, parametros);
        QVERIFY2(p.has_value(), qPrintable(palabra));
        QVERIFY2(!p->titulo.isEmpty(), qPrintable(palabra));
        QCOMPARE(p->sentencia.count(u'?'), p->valores.size());
        Connection c(session.Cadena);
        QSqlQuery q = c.Exec(p->sentencia, p->valores);
        QVERIFY2(q.isActive(), qPrintable(palabra + u": "_s + QueryError(q)));
        QVERIFY2(q.record().count() == static_cast<int>(p->columnas.size()), qPrintable(palabra));
        for (const ayuda::BusquedaAyuda& b : p->busquedas) {
          const PeticionAyuda buscada = Buscado(session, *p, b.tecla, u"1"_s);
          QSqlQuery qb = c.Exec(buscada.sentencia, buscada.valores);
          QVERIFY2(qb.isActive(), qPrintable(palabra + u": "_s + QueryError(qb)));
        }

        const std::optional<PeticionAyuda> minusculas =
            ayuda::Peticion(session, palabra.toLower(), parametros);
        QVERIFY2(minusculas.has_value(), qPrintable(palabra));
        QCOMPARE(minusculas->titulo, p->titulo);
        QCOMPARE(minusculas->sentencia, p->sentencia);
        QCOMPARE(minusculas->valores, p->valores);
      }
    }
    QVERIFY(!ayuda::Peticion(session, u"CLIENTE"_s).has_value());
  }

  // The product list's order follows the company's way of numbering codes; a big catalogue
  // opens on the first brand only, and a search lifts that restriction but keeps the order;
  // a typed code narrows the list.
  void ProductosPorMarcaYOrden() {
    VENTARIX_COMPANY(company);
    Session session = company.MakeSession();
    {
      Connection c(session.Cadena);
      QVERIFY(Catalogos(c));
    }
    // Finished goods last, each part by name.
    QCOMPARE(Llaves(session, Pedir(session, u"PRODUCTOS"_s)), u"C-3,B-1,A-2"_s);
    const QString consecutivo = session.empresa.Text(u"utilizar_consecutivo_en_codigo"_s);
    session.empresa.Set(u"utilizar_consecutivo_en_codigo"_s, u"S"_s);
    QCOMPARE(Llaves(session, Pedir(session, u"PRODUCTOS"_s)), u"A-2,B-1,C-3"_s);

    session.MuchosProductos = true;
    const PeticionAyuda muchos = Pedir(session, u"productos"_s);
    QCOMPARE(Llaves(session, muchos), u"A-2,B-1"_s);
    QCOMPARE(Llaves(session, Buscado(session, muchos, 3, u"2"_s)), u"C-3"_s);
    QCOMPARE(Llaves(session, Buscado(session, muchos, 2, u"*"_s)), u"A-2,B-1,C-3"_s);
    QCOMPARE(Llaves(session, Buscado(session, muchos, 4, u"al"_s)), u"C-3"_s);
    // Brand names come from the brands, on the lists that join them.
    const PeticionAyuda almacenes = Pedir(session, u"PRODUCTOS ALMACENES"_s);
    QCOMPARE(Filas(session, almacenes),
             (QList<QStringList>{
                 {u"A-2"_s, u"TRUPER"_s, u"MARTILLO"_s, u"7"_s, u"0"_s, u"0"_s, u"0"_s, u"0"_s},
                 {u"B-1"_s, u"TRUPER"_s, u"ZAPAPICO"_s, u"5"_s, u"0"_s, u"0"_s, u"0"_s, u"0"_s}}));
    QCOMPARE(Llaves(session, Buscado(session, almacenes, 3, u"2"_s)), u"C-3"_s);
    QCOMPARE(Llaves(session, Pedir(session, u"PRODUCCION"_s)), u"A-2"_s);
    // Stock by location adds up the first warehouse.
    const QList<QStringList> ubicaciones = Filas(session, Pedir(session, u"UBICACIONES"_s));
    QCOMPARE(ubicaciones.size(), 2);
    QCOMPARE(ubicaciones[0].value(0), u"P1"_s);
    QCOMPARE(ubicaciones[0].value(1).toDouble(), 12.0);

    // A code typed in the field narrows the list to codes holding it, whatever the
    // catalogue's size; the discount row's code answers at once.
    session.empresa.Set(u"utilizar_consecutivo_en_codigo"_s, consecutivo);
    ParametrosAyuda parametros;
    parametros.codigo = u"c-"_s;
    PeticionAyuda p = Pedir(session, u"PRODUCTOS"_s, parametros);
    QVERIFY(!p.inmediata);
    QCOMPARE(Llaves(session, p), u"C-3"_s);

    parametros.codigo = u"_"_s;  // a character of the code, not any character
    QCOMPARE(Llaves(session, Pedir(session, u"PRODUCTOS"_s, parametros)), QString());

    parametros.codigo = u" dppp "_s;
    p = Pedir(session, u"Productos"_s, parametros);
    QVERIFY(p.inmediata);
    QCOMPARE(p.resultado_inmediato, u"DPPP"_s);

    // The point of sale's lists start from what was typed, by name or by code.
    parametros.codigo = u"MAR"_s;
    session.Tienda = 1;
    QCOMPARE(Filas(session, Pedir(session, u"PRODUCTOS TPV x Producto"_s, parametros)).value(0),
             (QStringList{u"A-2"_s, u"1"_s, u"MARTILLO"_s, u"0"_s, u"P1"_s, u"7"_s, u"0"_s}));
    parametros.codigo = u"-"_s;
    const PeticionAyuda por_codigo = Pedir(session, u"PRODUCTOS TPV X CODIGO"_s, parametros);
    QCOMPARE(por_codigo.titulo, u"Produtos Tpv"_s);
    QCOMPARE(Llaves(session, por_codigo), u"A-2,B-1,C-3"_s);
  }

  void Busquedas_data() {
    QTest::addColumn<int>("tecla");
    QTest::addColumn<QString>("respuesta");
    QTest::addColumn<QString>("llaves");
    QTest::newRow("numero") << 2 << u"2"_s << u"2"_s;
    QTest::newRow("numero con coma") << 2 << u"1,0"_s << u"10"_s;
    QTest::newRow("numero con texto") << 2 << u"abc"_s << QString();
    QTest::newRow("numero fraccion") << 2 << u"2.5"_s << QString();
    QTest::newRow("solo guion") << 2 << u"-"_s << QString();
    QTest::newRow("todos") << 2 << u" * "_s << u"1,2,3,10"_s;
    QTest::newRow("nombre en minusculas") << 4 << u"ram"_s << u"2,10"_s;
    QTest::newRow("rfc") << 3 << u"xy2"_s << u"2"_s;
    QTest::newRow("comilla") << 4 << u"o'brien"_s << u"3"_s;
    QTest::newRow("porcentaje literal") << 4 << u"%"_s << u"10"_s;
    QTest::newRow("guion bajo literal") << 4 << u"_"_s << u"3"_s;
    QTest::newRow("escape literal") << 4 << u"!"_s << QString();
    QTest::newRow("inyeccion") << 4 << u"%';drop table clientes;--"_s << QString();
    QTest::newRow("inyeccion numerica") << 2 << u"1 or 1=1"_s << QString();
  }

  // A clerk looks for a client by number, by RFC and by part of the name; whatever is typed
  // reaches the database as a value and the clients stay where they were.
  void Busquedas() {
    QFETCH(int, tecla);
    QFETCH(QString, respuesta);
    QFETCH(QString, llaves);
    VENTARIX_COMPANY(company);
    const Session session = company.MakeSession();
    {
      Connection c(session.Cadena);
      QVERIFY(Catalogos(c));
    }
    const PeticionAyuda clientes = Pedir(session, u"CLIENTES"_s);
    QCOMPARE(Llaves(session, clientes), u"1,2,3,10"_s);
    QCOMPARE(Llaves(session, Buscado(session, clientes, tecla, respuesta)), llaves);
    Connection c(session.Cadena);
    QCOMPARE(c.Scalar(u"select count(*) from clientes"_s).toInt(), 4);
  }

  // The invoices a credit note may lower: the client's open ones in serie and folio order;
  // a supplier's open purchases with their invoice and delivery numbers; an invoice's rows;
  // the periods of the invoices and what each folio range has left.
  void DocumentosPendientes() {
    VENTARIX_COMPANY(company);
    Session session = company.MakeSession();
    {
      Connection c(session.Cadena);
      QVERIFY(Catalogos(c) && Documentos(c));
    }
    ParametrosAyuda parametros;
    parametros.cliente = 1;
    parametros.proveedor = 1;
    parametros.factura = u"A-1"_s;
    const QList<QStringList> facturas =
        Filas(session, Pedir(session, u"FACTURAS CLIENTE"_s, parametros));
    QCOMPARE(facturas.size(), 2);
    QCOMPARE(facturas[0].value(0), u"A-1"_s);
    QCOMPARE(facturas[0].value(7).toDouble(), 300.0);
    QCOMPARE(facturas[1].value(0), u"B-1"_s);
    QCOMPARE(Filas(session, Pedir(session, u"FACTURAS PROVEEDOR"_s, parametros)).value(0).mid(0, 2),
             (QStringList{u"C-1"_s, u"F881/"_s}));
    QCOMPARE(Llaves(session, Pedir(session, u"FACTURAS CLIENTE PRODUCTOS"_s, parametros)),
             u"B-1"_s);
    parametros.cliente = 2;
    QCOMPARE(Llaves(session, Pedir(session, u"FACTURAS CLIENTE"_s, parametros)), u"A-3"_s);

    // Periods of a document table, newest first; a name that is not such a table gives no list.
    parametros.tabla = u"Facturas"_s;
    QCOMPARE(Llaves(session, Pedir(session, u"PERIODOS"_s, parametros)), u"2014,2013"_s);
    for (const char16_t* tabla : {u"clientes", u"facturas; drop table facturas", u""}) {
      parametros.tabla = QString::fromUtf16(tabla);
      QVERIFY(!ayuda::Peticion(session, u"PERIODOS"_s, parametros).has_value());
    }

    // Each active range shows its size, the folios its invoices took and those left; a user
    // bound to series A sees only A's range.
    auto cifras = [](const QStringList& fila) {
      QList<int> n;
      for (int i : {0, 5, 6, 7}) n << fila.value(i).toInt();
      return n;
    };
    const QList<QStringList> folios = Filas(session, Pedir(session, u"FOLIOS FACTURAS"_s));
    QCOMPARE(folios.size(), 2);
    QCOMPARE(cifras(folios[0]), (QList<int>{1, 100, 3, 97}));
    QCOMPARE(cifras(folios[1]), (QList<int>{2, 50, 1, 49}));
    const QList<QStringList> notas = Filas(session, Pedir(session, u"FOLIOS NOTAS"_s));
    QCOMPARE(notas.size(), 1);
    QCOMPARE(cifras(notas[0]), (QList<int>{1, 10, 1, 9}));

    session.usuario.Set(u"AplicarSeriesEnFacturas"_s, u"S"_s);
    session.usuario.Set(u"SerieFacturacion1"_s, u"A"_s);
    QCOMPARE(Llaves(session, Pedir(session, u"FOLIOS FACTURAS"_s)), u"1"_s);
    QCOMPARE(Llaves(session, Pedir(session, u"SERIES REGISTRADAS FACTURAS"_s)), u"A,B"_s);
  }

  void Formatear_data() {
    QTest::addColumn<QVariant>("valor");
    QTest::addColumn<QString>("formato");
    QTest::addColumn<QString>("texto");
    QTest::newRow("dinero") << QVariant(1234.5) << u"#,##0.00"_s << u"1,234.50"_s;
    QTest::newRow("millones") << QVariant(1234567) << u"#,##0.00"_s << u"1,234,567.00"_s;
    QTest::newRow("negativo") << QVariant(-0.5) << u"#,##0.00"_s << u"-0.50"_s;
    QTest::newRow("precio") << QVariant(3.14159) << u"#,##0.0000"_s << u"3.1416"_s;
    QTest::newRow("texto numerico") << QVariant(u"12.5"_s) << u"#,##0.00"_s << u"12.50"_s;
    QTest::newRow("nulo") << QVariant() << u"#,##0.00"_s << QString();
    QTest::newRow("fecha sqlite") << QVariant(u"2014-03-05 10:20:00"_s) << u"dd/MM/yyyy"_s
                                  << u"05/03/2014"_s;
    QTest::newRow("fecha postgres") << QVariant(QDateTime(QDate(2014, 12, 31), QTime(8, 0)))
                                    << u"dd/MM/yyyy"_s << u"31/12/2014"_s;
    QTest::newRow("texto") << QVariant(u"CONTADO"_s) << QString() << u"CONTADO"_s;
  }

  void Formatear() {
    QFETCH(QVariant, valor);
    QFETCH(QString, formato);
    QFETCH(QString, texto);
    QCOMPARE(ayuda::Formatear(valor, formato), texto);
  }

  void Numero_data() {
    QTest::addColumn<QString>("texto");
    QTest::addColumn<double>("numero");
    QTest::newRow("guion") << u"-"_s << 0.0;
    QTest::newRow("dos puntos") << u"12.5.7"_s << 12.57;
    QTest::newRow("miles") << u"1,234.50"_s << 1234.5;
    QTest::newRow("letras") << u"abc"_s << 0.0;
    QTest::newRow("negativo") << u" -3 "_s << -3.0;
    QTest::newRow("vacio") << QString() << 0.0;
  }

  void Numero() {
    QFETCH(QString, texto);
    QFETCH(double, numero);
    QCOMPARE(ayuda::Numero(texto), numero);
  }
};

QTEST_GUILESS_MAIN(TestAyuda)
#include "tst_ayuda.moc"
