// The view editor's domain on both engines: what it refuses, which rows of `tablas` it
// writes for which users, and that a statement under test changes nothing.
#include <map>
#include <memory>

#include <QSqlQuery>
#include <QTest>

#include "core/browse_format.h"
#include "core/passwords.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace ventarix::mBrowse;

Q_DECLARE_METATYPE(ventarix::mBrowse::Formato)

namespace {

using namespace Qt::StringLiterals;

const QString kTabla = u"facturas"_s;

bool AgregarVista(Connection& c, const Vista& v) {
  QString error;
  const bool ok = c.Run(
      u"insert into tablas (tabla, usuario, sentencia, cadena, busqueda, ordenar, permisos, "
      u"seguridad, extender, renglon, altura, posicion) values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, "
      u"?, ?)"_s,
      {v.Tabla, v.Usuario, v.Sentencia, v.Cadena, v.Busqueda, v.Ordenar, v.Permisos, v.Seguridad,
       v.Extender, v.Renglon, v.Altura, v.Posicion},
      &error);
  if (!ok) qWarning("%s", qPrintable(error));
  return ok;
}

bool AgregarUsuario(Connection& c, const QString& usuario, bool gerente) {
  return c.Run(
      u"insert into usuarios (usuario, \"contraseña\", tienda, administrador, gerente, "
      u"permisos) values (?, ?, 1, 'N', ?, ?)"_s,
      {usuario, passwords::Hash(u"X"_s), gerente ? u"S"_s : u"N"_s, QString(200, u'1')});
}

bool AgregarFactura(Connection& c) {
  return c.Run(
      u"insert into facturas (factura, serie, folio, fecha, periodo, cliente, total, status, "
      u"tienda, equipo, usuario, ingreso, metodo, esquema) values ('A-1', 'A', 1, "
      u"'2014-01-05 00:00:00', 2014, 1, 100, 'POR COBRAR', 1, 'CAJA', 'ANA', 1, 1, 'CFDI')"_s);
}

// The row of a user, by column, as stored.
QVariantMap Fila(Connection& c, const QString& usuario) {
  QSqlQuery q =
      c.Exec(u"select * from tablas where tabla = ? and usuario = ?"_s, {kTabla, usuario});
  QVariantMap fila;
  if (!q.next()) return fila;
  for (const char* columna : {"sentencia", "cadena", "busqueda", "ordenar", "permisos", "seguridad",
                              "renglon", "posicion", "altura"}) {
    fila.insert(QString::fromLatin1(columna), q.value(QString::fromLatin1(columna)));
  }
  return fila;
}

Vista Plantilla() {
  Vista v;
  v.Tabla = kTabla;
  v.Usuario = QString::fromLatin1(kPlantilla);
  v.Sentencia = u"select * from facturas"_s;
  v.Cadena = u"factura|202|90|0|0|\r"_s;
  v.Busqueda = u"where t.serie = 'A'"_s;
  v.Ordenar = u"[folio] Asc"_s;
  v.Permisos = u"1111111111"_s;
  v.Seguridad = u"3|BAJAS|0|x|1"_s;
  v.Altura = 18;
  v.Renglon = 7;
  v.Posicion = 3;
  return v;
}

}  // namespace

class TestBrowseFormat : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  // The template first, then the users by name with their manager flag.
  void UsuariosYVistaInicial() {
    VENTARIX_COMPANY(company);
    Connection c(company.cadena());
    QVERIFY(AgregarUsuario(c, u"LUIS"_s, true));
    QVERIFY(AgregarUsuario(c, u"ANA"_s, false));
    Session session = company.MakeSession();
    const std::vector<UsuarioDeFormato> usuarios = UsuariosDeFormato(session);
    QCOMPARE(usuarios.size(), size_t(3));
    QCOMPARE(usuarios[0].usuario, u"ADMINISTRADOR"_s);
    QCOMPARE(usuarios[1].usuario, u"ANA"_s);
    QCOMPARE(usuarios[2].usuario, u"LUIS"_s);
    QVERIFY(!usuarios[1].gerente && usuarios[2].gerente);

    session.Usuario = u"ANA"_s;
    QVERIFY(VistaDeFormato(session, kTabla).Permisos.isEmpty());
    QVERIFY(AgregarVista(c, Plantilla()));
    QCOMPARE(VistaDeFormato(session, kTabla).Permisos, u"1111111111"_s);
    Vista propia = Plantilla();
    propia.Usuario = u"ANA"_s;
    propia.Permisos = u"10"_s;
    QVERIFY(AgregarVista(c, propia));
    QCOMPARE(VistaDeFormato(session, kTabla).Permisos, u"10"_s);
  }

  void Rechazos_data() {
    QTest::addColumn<Formato>("formato");
    QTest::addColumn<QStringList>("usuarios");
    QTest::addColumn<QString>("mensaje");
    QTest::addColumn<QString>("campo");
    const QStringList ana{u"ANA"_s};
    Formato nada;
    nada.Permisos = u"1"_s;
    QTest::newRow("nada aplicado")
        << nada << ana
        << u"Se requiere Aplicar Permisos, Aplicar Seguridad, Aplicar Ordenar o Aplicar Sql"_s
        << QString();
    Formato permisos;
    permisos.AplicarPermisos = true;
    permisos.Permisos = u"101"_s;
    QTest::newRow("sin usuarios") << permisos << QStringList()
                                  << u"Se requiere marcar al menos un usuario"_s << u"Usuarios"_s;
    permisos.Permisos = u"1021"_s;
    QTest::newRow("permisos con 2")
        << permisos << ana << u"Los permisos se escriben con 1 y 0, uno por botón"_s
        << u"Permisos"_s;
    Formato seguridad;
    seguridad.AplicarSeguridad = true;
    const QString mensaje_seguridad =
        u"Cada línea de seguridad lleva hasta cinco campos separados por |; los campos 3 y 5 "
        u"son números"_s;
    seguridad.Seguridad = u"1|ALTAS|0|x|1\n2|a|b|c|d|e"_s;
    QTest::newRow("seis campos") << seguridad << ana << mensaje_seguridad << u"Seguridad"_s;
    seguridad.Seguridad = u"3|BAJAS|NO"_s;
    QTest::newRow("campo 3 no es numero")
        << seguridad << ana << mensaje_seguridad << u"Seguridad"_s;
    Formato orden;
    orden.AplicarOrdenar = true;
    orden.Ordenar = u"[folio] Asc, fecha"_s;
    QTest::newRow("orden sin sentido")
        << orden << ana
        << u"El orden se escribe como [columna] Asc o [columna] Desc, separados por comas"_s
        << u"Ordenar"_s;
    orden.Ordenar = u"[folio] Asc; delete from tablas"_s;
    QTest::newRow("orden con sentencia")
        << orden << ana
        << u"El orden se escribe como [columna] Asc o [columna] Desc, separados por comas"_s
        << u"Ordenar"_s;
  }

  // Each refusal comes with its message and field, before anything is written.
  void Rechazos() {
    QFETCH(Formato, formato);
    QFETCH(QStringList, usuarios);
    QFETCH(QString, mensaje);
    QFETCH(QString, campo);
    // The checks come before any connection: a save that went further would fail on the
    // missing company with another message.
    Session session;
    session.Cadena = u"sqlite:/no/existe.mdb"_s;
    const Outcome o = GuardarFormato(session, kTabla, usuarios, formato, {});
    QVERIFY(!o.ok);
    QCOMPARE(o.message, mensaje);
    QCOMPARE(o.icon, MessageIcon::kWarning);
    QCOMPARE(o.field, campo);
  }

  // The administrator hands new toolbar permissions and a sort to the template, to ANA who has
  // her own view and to LUIS who has none: only those two columns change; LUIS starts from
  // the template's layout without its search or position.
  void SoloLoAplicado() {
    VENTARIX_COMPANY(company);
    Connection c(company.cadena());
    QVERIFY(AgregarVista(c, Plantilla()));
    Vista ana = Plantilla();
    ana.Usuario = u"ANA"_s;
    ana.Sentencia = u"select * from facturas where tienda = 1"_s;
    ana.Permisos = u"1010"_s;
    ana.Renglon = 40;
    QVERIFY(AgregarVista(c, ana));
    Formato formato;
    formato.AplicarPermisos = formato.AplicarOrdenar = true;
    formato.Permisos = u"0110"_s;
    formato.Ordenar = u"[total] Desc, [fecha] Asc"_s;
    formato.Sentencia = u"this is never written"_s;
    formato.Seguridad = u"nor this"_s;
    const Outcome o = GuardarFormato(company.MakeSession(), kTabla,
                                     {u"ADMINISTRADOR"_s, u"ANA"_s, u"LUIS"_s}, formato, {});
    QVERIFY2(o.ok, qPrintable(o.message));
    QCOMPARE(o.message, u"Permisos guardados con éxito"_s);
    QCOMPARE(o.icon, MessageIcon::kInformation);
    QCOMPARE(c.Scalar(u"select count(*) from tablas"_s).toInt(), 3);

    const QVariantMap plantilla = Fila(c, u"ADMINISTRADOR"_s);
    QCOMPARE(plantilla[u"permisos"_s].toString(), u"0110"_s);
    QCOMPARE(plantilla[u"ordenar"_s].toString(), u"[total] Desc, [fecha] Asc"_s);
    QCOMPARE(plantilla[u"sentencia"_s].toString(), u"select * from facturas"_s);
    QCOMPARE(plantilla[u"seguridad"_s].toString(), u"3|BAJAS|0|x|1"_s);
    QCOMPARE(plantilla[u"busqueda"_s].toString(), u"where t.serie = 'A'"_s);
    QCOMPARE(plantilla[u"renglon"_s].toInt(), 7);

    const QVariantMap propia = Fila(c, u"ANA"_s);
    QCOMPARE(propia[u"permisos"_s].toString(), u"0110"_s);
    QCOMPARE(propia[u"sentencia"_s].toString(), u"select * from facturas where tienda = 1"_s);
    QCOMPARE(propia[u"renglon"_s].toInt(), 40);

    const QVariantMap nueva = Fila(c, u"LUIS"_s);
    QCOMPARE(nueva[u"permisos"_s].toString(), u"0110"_s);
    QCOMPARE(nueva[u"ordenar"_s].toString(), u"[total] Desc, [fecha] Asc"_s);
    QCOMPARE(nueva[u"sentencia"_s].toString(), u"select * from facturas"_s);
    QCOMPARE(nueva[u"cadena"_s].toString(), u"factura|202|90|0|0|\r"_s);
    QCOMPARE(nueva[u"seguridad"_s].toString(), u"3|BAJAS|0|x|1"_s);
    QCOMPARE(nueva[u"altura"_s].toInt(), 18);
    QCOMPARE(nueva[u"busqueda"_s].toString(), QString());
    QCOMPARE(nueva[u"renglon"_s].toInt(), 0);
    QCOMPARE(nueva[u"posicion"_s].toInt(), 0);
  }

  // Without a template a new row holds only what was applied; security lines are stored one
  // per line with carriage return and line feed.
  void SinPlantilla() {
    VENTARIX_COMPANY(company);
    Formato formato;
    formato.AplicarSeguridad = true;
    formato.Seguridad = u"1|ALTAS|0\n\n3|BAJAS|1|x|0\r\n"_s;
    QVERIFY(GuardarFormato(company.MakeSession(), kTabla, {u"ANA"_s}, formato, {}).ok);
    Connection c(company.cadena());
    const QVariantMap fila = Fila(c, u"ANA"_s);
    QCOMPARE(fila[u"seguridad"_s].toString(), u"1|ALTAS|0\r\n3|BAJAS|1|x|0"_s);
    QCOMPARE(fila[u"sentencia"_s].toString(), QString());
    QCOMPARE(fila[u"permisos"_s].toString(), QString());
  }

  // A save that fails half-way leaves every row as it was: the second user's row is refused
  // (a user has a name), so the first user's change goes back too.
  void TodoONada() {
    VENTARIX_COMPANY(company);
    Connection c(company.cadena());
    Vista ana = Plantilla();
    ana.Usuario = u"ANA"_s;
    QVERIFY(AgregarVista(c, ana));
    Formato formato;
    formato.AplicarPermisos = true;
    formato.Permisos = u"0"_s;
    const Outcome o =
        GuardarFormato(company.MakeSession(), kTabla, {u"ANA"_s, QString()}, formato, {});
    QVERIFY(!o.ok);
    QCOMPARE(o.icon, MessageIcon::kStop);
    QCOMPARE(Fila(c, u"ANA"_s)[u"permisos"_s].toString(), u"1111111111"_s);
    QCOMPARE(c.Scalar(u"select count(*) from tablas"_s).toInt(), 1);
  }

  void Sentencia_data() {
    QTest::addColumn<QString>("sentencia");
    QTest::addColumn<QString>("nombre");
    QTest::addColumn<int>("tipo");
    QTest::addColumn<QString>("mensaje");  // empty: accepted
    const QString bien = u"select factura, folio, fecha, total from facturas"_s;
    QTest::newRow("texto") << bien << u"factura"_s << kTipoTexto << QString();
    QTest::newRow("entero") << bien << u"folio"_s << kTipoEntero32 << QString();
    QTest::newRow("entero corto") << bien << u"folio"_s << kTipoEntero16 << QString();
    QTest::newRow("fecha") << bien << u"fecha"_s << kTipoFecha << QString();
    QTest::newRow("doble") << bien << u"total"_s << kTipoDoble << QString();
    QTest::newRow("otro nombre de letra") << bien << u"FOLIO"_s << kTipoEntero32 << QString();
    QTest::newRow("falta") << bien << u"numero"_s << kTipoEntero32
                           << u"Se require la columna de numero con el tipo de datos 3"_s;
    QTest::newRow("texto no es entero")
        << bien << u"factura"_s << kTipoEntero32
        << u"Se require la columna de factura con el tipo de datos 3"_s;
    QTest::newRow("entero no es texto")
        << bien << u"folio"_s << kTipoTexto
        << u"Se require la columna de folio con el tipo de datos 202"_s;
    QTest::newRow("convertida") << u"select cast(folio as text) as folio from facturas"_s
                                << u"folio"_s << kTipoEntero16
                                << u"Se require la columna de folio con el tipo de datos 2"_s;
  }

  // A new statement keeps the columns the browser reads, each of its kind.
  void Sentencia() {
    QFETCH(QString, sentencia);
    QFETCH(QString, nombre);
    QFETCH(int, tipo);
    QFETCH(QString, mensaje);
    testing::TestCompany& company = ConFactura();
    if (company.skipped()) QSKIP("VENTARIX_TEST_PG is not set");
    QVERIFY2(company.ok(), qPrintable(company.error()));
    Connection c(company.cadena());
    QVERIFY(c.Run(u"delete from tablas"_s));
    Formato formato;
    formato.AplicarSql = true;
    formato.Sentencia = sentencia;
    const Outcome o =
        GuardarFormato(company.MakeSession(), kTabla, {u"ANA"_s}, formato, {{nombre, tipo}});
    if (mensaje.isEmpty()) {
      QVERIFY2(o.ok, qPrintable(o.message));
      QCOMPARE(Fila(c, u"ANA"_s)[u"sentencia"_s].toString(), sentencia);
      return;
    }
    QCOMPARE(o.message, mensaje);
    QCOMPARE(o.field, u"Sentencia"_s);
    QCOMPARE(c.Scalar(u"select count(*) from tablas"_s).toInt(), 0);
  }

  // A statement that does not run is refused with the engine's words; one that tries to write
  // behind the select is refused before anything changes.
  void SentenciaQueNoCorreONoLee() {
    VENTARIX_COMPANY(company);
    Connection c(company.cadena());
    QVERIFY(AgregarFactura(c));
    const Session session = company.MakeSession();
    for (const QString& sentencia :
         {u"select * from no_existe"_s, u"select 1 as x; delete from facturas"_s,
          u"select 1 as x) as a; delete from facturas; select * from (select 1"_s,
          u"with b as (delete from facturas returning *) select * from b"_s}) {
      Formato formato;
      formato.AplicarSql = true;
      formato.Sentencia = sentencia;
      const Outcome o = GuardarFormato(session, kTabla, {u"ANA"_s}, formato, {});
      QVERIFY2(!o.ok, qPrintable(sentencia));
      QVERIFY2(o.message.startsWith(u"La sentencia no se puede ejecutar: "_s),
               qPrintable(o.message));
      QCOMPARE(c.Scalar(u"select count(*) from facturas"_s).toInt(), 1);
    }
    QCOMPARE(c.Scalar(u"select count(*) from tablas"_s).toInt(), 0);
  }

 private:
  // The statements under test only read the invoice: one company per engine serves every
  // row of the table.
  testing::TestCompany& ConFactura() {
    QFETCH_GLOBAL(QString, engine);
    std::unique_ptr<testing::TestCompany>& company = empresas_[engine];
    if (!company) {
      company = std::make_unique<testing::TestCompany>(engine);
      if (company->ok()) {
        Connection c(company->cadena());
        AgregarFactura(c);
      }
    }
    return *company;
  }

  std::map<QString, std::unique_ptr<testing::TestCompany>> empresas_;
};

QTEST_GUILESS_MAIN(TestBrowseFormat)
#include "tst_browse_format.moc"
