// Rules of the main window that need no window: the menu mask, the sale screen of a user, the
// year panel's answer and the password step before the users catalogue.
#include <QTest>

#include "core/inicio.h"
#include "core/passwords.h"

using ventarix::Session;
using ventarix::inicio::BloqueMenu;

class TestInicio : public QObject {
  Q_OBJECT

 private slots:
  void EntradaHabilitada_data() {
    QTest::addColumn<QString>("permisos");
    QTest::addColumn<int>("bloque");
    QTest::addColumn<int>("indice");
    QTest::addColumn<bool>("habilitada");
    const QString todo = QString(200, u'1');
    QString sin_facturas = todo;
    sin_facturas[7] = u'0';  // records, entry 8
    QString sin_usuarios = todo;
    sin_usuarios[50 + 16] = u'0';  // catalogues, entry 17
    QString solo_respaldo = QString(150, u'0') + u'1' + QString(49, u'0');
    QTest::newRow("full mask, first record") << todo << 0 << 1 << true;
    QTest::newRow("full mask, last utility") << todo << 3 << 50 << true;
    QTest::newRow("invoices off") << sin_facturas << 0 << 8 << false;
    QTest::newRow("invoices off leaves remisiones") << sin_facturas << 0 << 7 << true;
    QTest::newRow("same index in catalogues untouched") << sin_facturas << 1 << 8 << true;
    QTest::newRow("users off") << sin_usuarios << 1 << 17 << false;
    QTest::newRow("users off leaves records 17") << sin_usuarios << 0 << 17 << true;
    QTest::newRow("utilities block starts at 151") << solo_respaldo << 3 << 1 << true;
    QTest::newRow("reports 1 is position 101") << solo_respaldo << 2 << 1 << false;
    QTest::newRow("short mask denies the rest") << QStringLiteral("111") << 0 << 4 << false;
    QTest::newRow("short mask keeps its own") << QStringLiteral("111") << 0 << 3 << true;
    QTest::newRow("empty mask") << QString() << 0 << 1 << false;
    QTest::newRow("index 0 is no entry") << todo << 1 << 0 << false;
    QTest::newRow("index 51 is no entry") << todo << 0 << 51 << false;
    QTest::newRow("other character") << QStringLiteral("S1") << 0 << 1 << false;
  }
  void EntradaHabilitada() {
    QFETCH(QString, permisos);
    QFETCH(int, bloque);
    QFETCH(int, indice);
    QFETCH(bool, habilitada);
    QCOMPARE(ventarix::inicio::EntradaHabilitada(permisos, static_cast<BloqueMenu>(bloque), indice),
             habilitada);
  }

  void FormaTpv_data() {
    QTest::addColumn<QVariant>("pantalla");
    QTest::addColumn<QString>("forma");
    QTest::newRow("1") << QVariant(1) << QStringLiteral("FrmTpv1");
    QTest::newRow("2") << QVariant(2) << QStringLiteral("FrmTpv2");
    QTest::newRow("3") << QVariant(3) << QStringLiteral("FrmTpv3");
    QTest::newRow("4 is the default") << QVariant(4) << QStringLiteral("FrmTpv2");
    QTest::newRow("no terminal row") << QVariant() << QStringLiteral("FrmTpv2");
  }
  void FormaTpv() {
    QFETCH(QVariant, pantalla);
    QFETCH(QString, forma);
    Session session;
    if (pantalla.isValid())
      session.configurar.Set(QStringLiteral("PantallaPorDefaultEnTpv"), pantalla);
    QCOMPARE(ventarix::inicio::FormaTpv(session), forma);
  }

  void AnoDeRespuesta_data() {
    QTest::addColumn<QString>("respuesta");
    QTest::addColumn<int>("ano");  // 0: the panel stays as it was
    QTest::newRow("plain") << QStringLiteral("2013") << 2013;
    QTest::newRow("first four characters") << QStringLiteral("2014 y algo") << 2014;
    QTest::newRow("five digits cut") << QStringLiteral("20156") << 2015;
    QTest::newRow("short year") << QStringLiteral("99") << 99;
    QTest::newRow("zero") << QStringLiteral("0") << 0;
    QTest::newRow("negative") << QStringLiteral("-201") << 0;
    QTest::newRow("letters") << QStringLiteral("ABCD") << 0;
    QTest::newRow("empty") << QString() << 0;
  }
  void AnoDeRespuesta() {
    QFETCH(QString, respuesta);
    QFETCH(int, ano);
    const std::optional<int> leido = ventarix::inicio::AnoDeRespuesta(respuesta);
    QCOMPARE(leido.value_or(0), ano);
  }

  void AdmiteAlineacion() {
    QVERIFY(ventarix::inicio::AdmiteAlineacion(QStringLiteral("Facturas")));
    QVERIFY(ventarix::inicio::AdmiteAlineacion(QStringLiteral("AJUSTES DE INVENTARIO")));
    QVERIFY(ventarix::inicio::AdmiteAlineacion(QStringLiteral("folios notas")));
    QVERIFY(!ventarix::inicio::AdmiteAlineacion(QStringLiteral("Usuarios")));
    QVERIFY(!ventarix::inicio::AdmiteAlineacion(QStringLiteral("FrmFacturas")));
  }

  // A company with no administrator: the users catalogue opens without a prompt.
  void UsuariosSinContrasenaDeAdministrador() {
    Session session;
    session.ContrasenaAdministrador.clear();
    QVERIFY(!ventarix::inicio::AutorizacionUsuarios(session));
  }

  // With an administrator, the logged user proves who they are with their own password, which
  // is kept hashed; what is typed counts in upper case.
  void UsuariosConContrasena() {
    Session session;
    session.ContrasenaAdministrador = ventarix::passwords::Hash(QStringLiteral("JEFE"));
    session.Contrasena = ventarix::passwords::Hash(QStringLiteral("CAJA7"));
    const auto prompt = ventarix::inicio::AutorizacionUsuarios(session);
    QVERIFY(prompt);
    QCOMPARE(prompt->titulo, QStringLiteral("Contraseña de seguridad"));

    const ventarix::Outcome mala =
        ventarix::inicio::Autorizar(prompt->claves, QStringLiteral("JEFE"));
    QVERIFY(!mala.ok);
    QCOMPARE(mala.message, QStringLiteral("Esta contraseña no corresponde para una autorización"));
    QCOMPARE(mala.field, QStringLiteral("Autorizar"));

    QVERIFY(ventarix::inicio::Autorizar(prompt->claves, QStringLiteral("caja7")).ok);
  }

  void PrepararSesion() {
    Session session;
    session.Usuario = QStringLiteral("OTRO");
    session.Administrador = false;
    session.Tienda = 4;
    session.UtilizarMayusculas = false;
    ventarix::inicio::PrepararSesion(session);
    QCOMPARE(session.Usuario, QStringLiteral("ADMINISTRADOR"));
    QVERIFY(session.Administrador);
    QCOMPARE(session.Tienda, 1);
    QVERIFY(session.UtilizarMayusculas);
    QVERIFY(!session.Equipo.isEmpty());
    QVERIFY(session.Equipo.size() <= 20);
    QList<quint32> colores;
    for (int i = 1; i <= 8; ++i) colores << ventarix::inicio::ColorDeFondo(i);
    QVERIFY(colores.contains(session.ColorFondo));
    QCOMPARE(colores.first(), 0xC0C0FFu);
    QCOMPARE(colores.last(), 0x80FF80u);
  }
};

QTEST_GUILESS_MAIN(TestInicio)
#include "tst_inicio.moc"
