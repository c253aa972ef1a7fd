// Users and their rights on both engines: who becomes administrator, the stores each screen
// allows, passwords after a change, the menu mask and rights texts as the session load reads
// them back, and what deleting the last administrator does to the next start.
#include <QTest>

#include "core/database.h"
#include "core/inicio.h"
#include "core/mFunciones.h"
#include "core/passwords.h"
#include "core/session_load.h"
#include "core/startup.h"
#include "core/usuarios.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace ventarix::usuarios;
using namespace Qt::StringLiterals;

namespace {

DatosUsuario Datos(const QString& usuario, const QString& contrasena, const QString& tienda,
                   bool administrador = false, bool gerente = false) {
  return {usuario, contrasena, tienda, administrador, gerente};
}

QVariant Columna(const Session& s, const QString& columna, const QString& usuario) {
  Connection c(s.Cadena);
  return c.Scalar(u"select "_s + columna + u" from usuarios where usuario = ?"_s, {usuario});
}

int Usuarios(const Session& s) {
  Connection c(s.Cadena);
  return c.Scalar(u"select count(*) from usuarios"_s).toInt();
}

QList<bool> Estados(int cuantos, bool valor) { return QList<bool>(cuantos, valor); }

}  // namespace

class TestUsuarios : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  // ---- Rules without a database ----

  void Mascara_data() {
    QTest::addColumn<QList<bool>>("registros");
    QTest::addColumn<QList<bool>>("utilerias");
    QTest::addColumn<QString>("esperada");
    const QString ceros(50, u'0');
    QTest::newRow("nada marcado") << QList<bool>{} << QList<bool>{} << QString(200, u'0');
    QTest::newRow("se rellena con ceros") << QList<bool>{true, false, true} << QList<bool>{}
                                          << u"101"_s + QString(47, u'0') + ceros + ceros + ceros;
    QTest::newRow("más de 50 se corta")
        << Estados(60, true) << QList<bool>{true}
        << QString(50, u'1') + ceros + ceros + u"1"_s + QString(49, u'0');
    QList<bool> ultimo = Estados(50, false);
    ultimo[49] = true;
    QTest::newRow("índice 50 de utilerías")
        << QList<bool>{} << ultimo << QString(199, u'0') + u"1"_s;
  }

  void Mascara() {
    QFETCH(QList<bool>, registros);
    QFETCH(QList<bool>, utilerias);
    QFETCH(QString, esperada);
    const QString mascara = MascaraDePermisos({registros, {}, {}, utilerias});
    QCOMPARE(mascara, esperada);
    QCOMPARE(mascara.size(), kLargoPermisos);
    // The main window reads back what the rights screen wrote.
    for (int i = 1; i <= 50; ++i) {
      const bool marcada = i <= registros.size() && registros[i - 1];
      QCOMPARE(inicio::EntradaHabilitada(mascara, inicio::BloqueMenu::kRegistros, i), marcada);
    }
  }

  void TextoDeDerechos_data() {
    QTest::addColumn<QString>("texto");
    QTest::addColumn<bool>("valido");
    QTest::newRow("todo") << u"SSS"_s << true;
    QTest::newRow("nada") << u"NNN"_s << true;
    QTest::newRow("corto") << u"SN"_s << true;
    QTest::newRow("vacío") << QString() << true;
    QTest::newRow("largo") << u"SSSS"_s << false;
    QTest::newRow("otra letra") << u"SXS"_s << false;
    QTest::newRow("minúsculas") << u"sss"_s << false;
  }

  void TextoDeDerechos() {
    QFETCH(QString, texto);
    QFETCH(bool, valido);
    QCOMPARE(TextoDeDerechosValido(texto), valido);
  }

  // ---- Adding and changing users ----

  // The first user becomes administrator whatever was ticked; the next ones keep their flags.
  // Administrators and managers start with every menu entry, others with none. A name is
  // required and unique.
  void PrimerUsuarioEsAdministrador() {
    VENTARIX_COMPANY(company);
    Session s = company.MakeSession();
    QVERIFY(AltaUsuario(s, Datos(u"ANA"_s, u"clave"_s, u"2"_s)));
    QVERIFY(AltaUsuario(s, Datos(u"LUIS"_s, u"DOS"_s, u"1"_s)));
    QVERIFY(AltaUsuario(s, Datos(u"JUAN"_s, u"TRES"_s, u"3"_s, false, true)));

    QCOMPARE(Columna(s, u"administrador"_s, u"ANA"_s).toString(), u"S"_s);
    QCOMPARE(Columna(s, u"administrador"_s, u"LUIS"_s).toString(), u"N"_s);
    QCOMPARE(Columna(s, u"administrador"_s, u"JUAN"_s).toString(), u"N"_s);
    QCOMPARE(Columna(s, u"gerente"_s, u"JUAN"_s).toString(), u"S"_s);
    QCOMPARE(Columna(s, u"tienda"_s, u"ANA"_s).toInt(), 2);
    QCOMPARE(Columna(s, u"permisos"_s, u"ANA"_s).toString(), QString(200, u'1'));
    QCOMPARE(Columna(s, u"permisos"_s, u"LUIS"_s).toString(), QString(200, u'0'));
    QCOMPARE(Columna(s, u"permisos"_s, u"JUAN"_s).toString(), QString(200, u'1'));

    // Stored hashed; the password counts in upper case.
    const QString guardada = Columna(s, u"\"contraseña\""_s, u"ANA"_s).toString();
    QVERIFY(passwords::IsHashed(guardada));
    QVERIFY(passwords::Verify(u"CLAVE"_s, guardada));
    QVERIFY(!passwords::Verify(u"CLAVES"_s, guardada));
    // And the login takes it.
    QVERIFY(startup::Entrar(s, u"ANA"_s, u"CLAVE"_s));
    QVERIFY(s.Administrador);
    QCOMPARE(s.Tienda, 2);

    // A repeated or empty name saves nothing; the first password still enters.
    const Outcome repetido = AltaUsuario(s, Datos(u" ANA "_s, u"OTRA"_s, u"1"_s));
    QCOMPARE(repetido.message, u"Este usuario ya está registrado"_s);
    QCOMPARE(repetido.field, u"Usuario"_s);
    const Outcome vacio = AltaUsuario(s, Datos(u"  "_s, u"OTRA"_s, u"1"_s));
    QCOMPARE(vacio.message, u"Se requiere la entrada del usuario"_s);
    QCOMPARE(Usuarios(s), 3);
    QVERIFY(startup::Entrar(s, u"ANA"_s, u"CLAVE"_s));
  }

  void Tienda_data() {
    QTest::addColumn<bool>("alta");
    QTest::addColumn<QString>("tienda");
    QTest::addColumn<QString>("mensaje");
    const QString alta = u"Se requiere la entrada de la tienda 1, 2 o 3"_s;
    const QString cambio = u"Se requiere la entrada de la tienda 1, 2, 3, 4 o 5"_s;
    QTest::newRow("alta 1") << true << u"1"_s << QString();
    QTest::newRow("alta 3") << true << u"3"_s << QString();
    QTest::newRow("alta 4") << true << u"4"_s << alta;
    QTest::newRow("alta 0") << true << u"0"_s << alta;
    QTest::newRow("alta vacía") << true << QString() << alta;
    QTest::newRow("alta letra") << true << u"A"_s << alta;
    QTest::newRow("cambio 4") << false << u"4"_s << QString();
    QTest::newRow("cambio 5") << false << u"5"_s << QString();
    QTest::newRow("cambio 6") << false << u"6"_s << cambio;
    QTest::newRow("cambio -1") << false << u"-1"_s << cambio;
  }

  // The add screen allows stores 1 to 3, the change screen 1 to 5; a refused store saves
  // nothing.
  void Tienda() {
    QFETCH(bool, alta);
    QFETCH(QString, tienda);
    QFETCH(QString, mensaje);
    VENTARIX_COMPANY(company);
    Session s = company.MakeSession();
    if (!alta) QVERIFY(AltaUsuario(s, Datos(u"ANA"_s, u"UNO"_s, u"2"_s)));
    const Outcome outcome = alta ? AltaUsuario(s, Datos(u"ANA"_s, u"UNO"_s, tienda))
                                 : CambioUsuario(s, Datos(u"ANA"_s, QString(), tienda));
    QCOMPARE(outcome.message, mensaje);
    QCOMPARE(outcome.ok, mensaje.isEmpty());
    if (!outcome) {
      QCOMPARE(outcome.field, u"Tienda"_s);
      QCOMPARE(outcome.icon, MessageIcon::kWarning);
      QCOMPARE(Usuarios(s), alta ? 0 : 1);
      if (!alta) QCOMPARE(Columna(s, u"tienda"_s, u"ANA"_s).toInt(), 2);
    } else {
      QCOMPARE(Columna(s, u"tienda"_s, u"ANA"_s).toInt(), tienda.toInt());
    }
  }

  // The change screen never touches the administrator flag; someone who is no administrator
  // changes only their own row and cannot make themselves a manager.
  void CambioDeRolesYDeQuien() {
    VENTARIX_COMPANY(company);
    Session s = company.MakeSession();
    QVERIFY(AltaUsuario(s, Datos(u"ANA"_s, u"UNO"_s, u"1"_s)));
    QVERIFY(AltaUsuario(s, Datos(u"LUIS"_s, u"DOS"_s, u"1"_s)));
    QVERIFY(CambioUsuario(s, Datos(u"LUIS"_s, QString(), u"4"_s, true, true)));
    QCOMPARE(Columna(s, u"administrador"_s, u"LUIS"_s).toString(), u"N"_s);
    QCOMPARE(Columna(s, u"gerente"_s, u"LUIS"_s).toString(), u"S"_s);
    QVERIFY(CambioUsuario(s, Datos(u"LUIS"_s, QString(), u"4"_s, false, false)));
    QCOMPARE(Columna(s, u"gerente"_s, u"LUIS"_s).toString(), u"N"_s);

    QVERIFY(startup::Entrar(s, u"LUIS"_s, u"DOS"_s));
    QVERIFY(!s.Administrador);
    QVERIFY(!PuedeCambiar(s, u"ANA"_s));
    QVERIFY(PuedeCambiar(s, u"LUIS"_s));
    const Outcome ajeno = CambioUsuario(s, Datos(u"ANA"_s, u"NUEVA"_s, u"2"_s));
    QCOMPARE(ajeno.message, u"Este usuario no tiene permisos para cambios de registros"_s);
    QCOMPARE(Columna(s, u"tienda"_s, u"ANA"_s).toInt(), 1);
    QVERIFY(CambioUsuario(s, Datos(u"LUIS"_s, QString(), u"5"_s, false, true)));
    QCOMPARE(Columna(s, u"tienda"_s, u"LUIS"_s).toInt(), 5);
    QCOMPARE(Columna(s, u"gerente"_s, u"LUIS"_s).toString(), u"N"_s);
    const Outcome alta = AltaUsuario(s, Datos(u"PEDRO"_s, u"X"_s, u"1"_s));
    QCOMPARE(alta.message, u"Este usuario no tiene permisos para el registro de altas"_s);

    s.Administrador = true;
    const Outcome nadie = CambioUsuario(s, Datos(u"NADIE"_s, QString(), u"1"_s));
    QCOMPARE(nadie.message, u"Usuario no registrado para acceso al sistema"_s);
  }

  // A new password enters and the old one no longer does; an empty one keeps what is stored.
  void ContrasenaDespuesDelCambio() {
    VENTARIX_COMPANY(company);
    Session s = company.MakeSession();
    QVERIFY(AltaUsuario(s, Datos(u"ANA"_s, u"UNO"_s, u"1"_s)));
    QVERIFY(startup::Entrar(s, u"ANA"_s, u"UNO"_s));
    QVERIFY(CambioUsuario(s, Datos(u"ANA"_s, u"dos"_s, u"1"_s, true)));
    // Her own prompts now ask for the new one.
    QVERIFY(passwords::Verify(u"DOS"_s, s.Contrasena));
    Session otra = company.MakeSession();
    const Outcome vieja = startup::Entrar(otra, u"ANA"_s, u"UNO"_s);
    QCOMPARE(vieja.message, u"Contraseña no válida para acceso al sistema"_s);
    QVERIFY(startup::Entrar(otra, u"ANA"_s, u"DOS"_s));

    QVERIFY(CambioUsuario(s, Datos(u"ANA"_s, QString(), u"3"_s, true)));
    QVERIFY(startup::Entrar(otra, u"ANA"_s, u"DOS"_s));
    QCOMPARE(otra.Tienda, 3);
  }

  // ---- Rights ----

  // The rights screen's save, read back by the screen and by the session load of the user;
  // a badly written one is refused whole.
  void DerechosGuardadosYCargados() {
    VENTARIX_COMPANY(company);
    Session s = company.MakeSession();
    QVERIFY(AltaUsuario(s, Datos(u"ANA"_s, u"UNO"_s, u"1"_s)));
    QVERIFY(AltaUsuario(s, Datos(u"LUIS"_s, u"DOS"_s, u"2"_s)));

    // A badly written rights text saves nothing of the row.
    Derechos mal;
    QVERIFY(LeerDerechos(s, u"ANA"_s, &mal));
    mal.textos[u"Facturas"_s] = u"SSS"_s;
    mal.textos[u"Remisiones"_s] = u"SXS"_s;
    mal.permisos = QString(200, u'0');
    const Outcome outcome = GuardarDerechos(s, u"ANA"_s, mal);
    QVERIFY(!outcome);
    QCOMPARE(outcome.field, u"Remisiones"_s);
    QCOMPARE(Columna(s, u"permisos"_s, u"ANA"_s).toString(), QString(200, u'1'));
    QCOMPARE(Columna(s, u"facturas"_s, u"ANA"_s).toString(), QString());
    QCOMPARE(GuardarDerechos(s, u"NADIE"_s, Derechos{}).message,
             u"Usuario no registrado para acceso al sistema"_s);

    Derechos d;
    QVERIFY(LeerDerechos(s, u"LUIS"_s, &d));
    QCOMPARE(d.permisos, QString(200, u'0'));
    QList<bool> registros = Estados(24, true);
    registros[6] = false;  // Remisiones
    d.permisos = MascaraDePermisos({registros, Estados(17, true), {}, {true}});
    for (const QString& columna : ColumnasDeDerechos()) d.textos[columna] = u"NNN"_s;
    d.textos[u"Facturas"_s] = u"SNS"_s;
    d.textos[u"Clientes"_s] = u"SS"_s;
    d.modificar_costo = true;
    d.aplicar_series = true;
    d.series[0] = u"A"_s;
    d.series[8] = u" Z "_s;
    QVERIFY(GuardarDerechos(s, u"LUIS"_s, d));

    Derechos leidos;
    QVERIFY(LeerDerechos(s, u"LUIS"_s, &leidos));
    QCOMPARE(leidos.permisos, d.permisos);
    QCOMPARE(leidos.textos, d.textos);
    QVERIFY(leidos.modificar_costo && !leidos.modificar_plazo && !leidos.modificar_credito);
    QVERIFY(leidos.aplicar_series);
    QCOMPARE(leidos.series[8], u"Z"_s);
    QCOMPARE(Columna(s, u"modificarplazo"_s, u"LUIS"_s).toString(), u"N"_s);

    QVERIFY(startup::Entrar(s, u"LUIS"_s, u"DOS"_s));
    CargarPermisos(s);
    const QString mascara = inicio::Permisos(s);
    QVERIFY(!inicio::EntradaHabilitada(mascara, inicio::BloqueMenu::kRegistros, 7));
    QVERIFY(inicio::EntradaHabilitada(mascara, inicio::BloqueMenu::kRegistros, 8));
    QVERIFY(inicio::EntradaHabilitada(mascara, inicio::BloqueMenu::kCatalogos, 17));
    QVERIFY(!inicio::EntradaHabilitada(mascara, inicio::BloqueMenu::kReportes, 1));
    QVERIFY(inicio::EntradaHabilitada(mascara, inicio::BloqueMenu::kUtilerias, 1));
    QCOMPARE(s.usuario.Text(u"Facturas"_s), u"SNS"_s);
    QCOMPARE(s.usuario.Text(u"Clientes"_s), u"SS"_s);
    QVERIFY(PuedeModificar(s, u"ModificarCosto"_s));
    QVERIFY(!PuedeModificar(s, u"ModificarPlazo"_s));
    QVERIFY(!PuedeModificar(s, u"ModificarCredito"_s));
    QVariantList series;
    QVERIFY(mFunciones::SerieEnLista(s, series).contains(u"serie"_s));
    QVERIFY(series.contains(u"A"_s));
    QCOMPARE(s.usuario.Text(u"SerieFacturacion9"_s), u"Z"_s);

    // An administrator edits every locked field whatever the row says.
    s.Administrador = true;
    QVERIFY(PuedeModificar(s, u"ModificarPlazo"_s));
    s.Administrador = false;
    const Outcome ajeno = GuardarDerechos(s, u"LUIS"_s, d);
    QCOMPARE(ajeno.message, u"Este usuario no tiene permisos para cambios de registros"_s);
  }

  // ---- Deleting ----

  // Once the last administrator is gone, the next start empties the table and enters as
  // ADMINISTRADOR without login.
  void BorrarElUltimoAdministrador() {
    VENTARIX_COMPANY(company);
    Session s = company.MakeSession();
    QVERIFY(AltaUsuario(s, Datos(u"ANA"_s, u"UNO"_s, u"1"_s)));
    QVERIFY(AltaUsuario(s, Datos(u"LUIS"_s, u"DOS"_s, u"1"_s, false, true)));

    Session luis = company.MakeSession();
    QVERIFY(startup::Entrar(luis, u"LUIS"_s, u"DOS"_s));
    QCOMPARE(BorrarUsuario(luis, u"ANA"_s).message,
             u"Este usuario no tiene permisos para bajas de registros"_s);
    QCOMPARE(BorrarUsuario(s, u"NADIE"_s).message,
             u"Usuario no registrado para acceso al sistema"_s);

    QVERIFY(BorrarUsuario(s, u"ANA"_s));
    QCOMPARE(Usuarios(s), 2);
    Session siguiente = company.MakeSession();
    QVERIFY(!startup::EntrarSinAcceso(siguiente));
    QVERIFY(passwords::Verify(u"tres"_s, siguiente.ContrasenaAdministrador));
  }
};

QTEST_GUILESS_MAIN(TestUsuarios)
#include "tst_usuarios.moc"
