// Users and their rights on both engines: who becomes administrator, the stores each screen
// allows, passwords after a change, the menu mask and rights texts as the session load reads
// them back, the only administrator kept, and every routine that writes refusing a user
// without the right.
#include <functional>

#include <QSqlQuery>
#include <QSqlRecord>
#include <QTest>

#include "catalogs/costos_masivos.h"
#include "catalogs/empresa_datos.h"
#include "catalogs/lineas.h"
#include "catalogs/marcas.h"
#include "catalogs/productos.h"
#include "catalogs/productos_cambio_codigo.h"
#include "catalogs/socios_guardar.h"
#include "core/browse_format.h"
#include "core/database.h"
#include "core/inicio.h"
#include "core/mFunciones.h"
#include "core/passwords.h"
#include "core/registro_inicial.h"
#include "core/session_load.h"
#include "core/startup.h"
#include "core/usuarios.h"
#include "edocs/folios_rangos.h"
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

// A domain routine as its screen calls it.
using Rutina = std::function<Outcome(Session&)>;

// The rows a routine under test could write, as sorted text: equal texts, nothing written.
QString Huella(const Session& s) {
  Connection c(s.Cadena);
  QStringList filas;
  for (const char* tabla : {"usuarios", "empresa", "productos", "marcas", "lineas", "agentes",
                            "folios facturas", "tablas"}) {
    QSqlQuery q = c.Exec(u"select * from "_s + dialect::Name(QString::fromLatin1(tabla)));
    while (q.next()) {
      QString fila = QString::fromLatin1(tabla);
      for (int i = 0; i < q.record().count(); ++i) fila += u'|' + q.value(i).toString();
      filas << fila;
    }
  }
  filas.sort();
  return filas.join(u'\n');
}

bool Sembrar(Connection& c) {
  using testing::Insertar;
  return Insertar(c, u"usuarios"_s,
                  {{u"usuario"_s, u"ANA"_s}, {u"administrador"_s, u"S"_s}, {u"tienda"_s, 1}}) &&
         Insertar(c, u"usuarios"_s, {{u"usuario"_s, u"LUIS"_s}, {u"tienda"_s, 1}}) &&
         Insertar(c, u"empresa"_s, {{u"numero"_s, 1}, {u"nombre"_s, u"TIENDA"_s}}) &&
         Insertar(c, u"marcas"_s,
                  {{u"numero"_s, 1}, {u"nombre"_s, u"M"_s}, {u"status"_s, u"ALTA"_s}}) &&
         Insertar(c, u"lineas"_s,
                  {{u"numero"_s, 1}, {u"nombre"_s, u"L"_s}, {u"status"_s, u"ALTA"_s}}) &&
         Insertar(c, u"agentes"_s,
                  {{u"numero"_s, 1},
                   {u"nombre"_s, u"A"_s},
                   {u"tienda"_s, 1},
                   {u"status"_s, u"ALTA"_s}}) &&
         Insertar(c, u"productos"_s,
                  {{u"codigo"_s, u"A1"_s},
                   {u"producto"_s, u"P"_s},
                   {u"marca"_s, 1},
                   {u"linea"_s, 1},
                   {u"costo"_s, 5.0},
                   {u"utilidad1"_s, 30.0},
                   {u"status"_s, u"ALTA"_s}}) &&
         Insertar(c, u"folios facturas"_s,
                  {{u"numero"_s, 1},
                   {u"serie"_s, u"A"_s},
                   {u"esquema"_s, u"NOTA"_s},
                   {u"status"_s, u"ALTA"_s},
                   {u"predeterminar"_s, u"+"_s}}) &&
         Insertar(c, u"folios facturas"_s,
                  {{u"numero"_s, 2},
                   {u"serie"_s, u"B"_s},
                   {u"esquema"_s, u"NOTA"_s},
                   {u"status"_s, u"ALTA"_s}}) &&
         Insertar(c, u"tablas"_s,
                  {{u"tabla"_s, u"clientes"_s},
                   {u"usuario"_s, QString::fromLatin1(mBrowse::kPlantilla)},
                   {u"permisos"_s, u"1101"_s}});
}

// The status label turned to "BAJA" on the change screen of each catalogue.
Outcome MarcaDeBaja(Session& s) {
  marcas::Marca m;
  if (Outcome leida = marcas::LeerMarca(s, 1, &m); !leida) return leida;
  m.status = u"BAJA"_s;
  return marcas::CambioMarca(s, m);
}
Outcome LineaDeBaja(Session& s) {
  lineas::Linea l;
  if (Outcome leida = lineas::LeerLinea(s, 1, &l); !leida) return leida;
  l.status = u"BAJA"_s;
  return lineas::CambioLinea(s, l);
}
Outcome ProductoDeBaja(Session& s) {
  productos::Leido p;
  if (Outcome leido = productos::LeerProducto(s, u"A1"_s, &p); !leido) return leido;
  p.producto.status = u"BAJA"_s;
  return productos::CambioProducto(s, p.producto);
}
Outcome AgenteDeBaja(Session& s) {
  socios::Registro r;
  if (Outcome leido = socios::LeerSocio(s, socios::Socio::kAgentes, 1, &r); !leido) return leido;
  r.status = u"BAJA"_s;
  return socios::GuardarSocio(s, socios::Socio::kAgentes, true, r).outcome;
}

}  // namespace

Q_DECLARE_METATYPE(Rutina)

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

  void RutinaSinDerechoNoEscribe_data() {
    QTest::addColumn<bool>("administrador");
    QTest::addColumn<QString>("columna");  // the user's right taken away
    QTest::addColumn<QString>("derecho");
    QTest::addColumn<Rutina>("rutina");
    QTest::addColumn<QString>("mensaje");
    const QString altas = u"Este usuario no tiene permisos para el registro de altas"_s;
    const QString bajas = u"Este usuario no tiene permisos para bajas de registros"_s;
    const QString cambios = u"Este usuario no tiene permisos para cambios de registros"_s;
    const QString formato = u"Solo un administrador puede cambiar el formato de las vistas"_s;
    using costos_masivos::Modo;
    const auto costos = [](Modo modo, QString codigo) {
      return Rutina([=](Session& s) {
        return costos_masivos::GuardarCostos(
                   s, {{codigo, u"10"_s, u"X"_s, u"PZA"_s, u"1"_s, u"1"_s}}, modo, true)
            .outcome;
      });
    };
    QTest::newRow("formato de la vista")
        << false << QString() << QString() << Rutina([](Session& s) {
             mBrowse::Formato f{.AplicarPermisos = true, .Permisos = u"1111"_s};
             return mBrowse::GuardarFormato(s, u"clientes"_s, {s.Usuario}, f, {});
           })
        << formato;
    QTest::newRow("sentencia de la vista")
        << false << QString() << QString() << Rutina([](Session& s) {
             return mBrowse::ProbarSentencia(s, u"select * from usuarios"_s, {});
           })
        << formato;
    QTest::newRow("cambio de código")
        << false << u"Productos"_s << u"SSN"_s
        << Rutina([](Session& s) { return productos::AnotarCambioDeCodigo(s, u"A1"_s, u"B1"_s); })
        << cambios;
    QTest::newRow("rango predeterminado")
        << false << u"FoliosFacturas"_s << u"SSN"_s << Rutina([](Session& s) {
             return edocs::Predeterminar(s, edocs::FamiliaFolios::kFacturas, 2);
           })
        << cambios;
    QTest::newRow("datos de la empresa")
        << false << u"Permisos"_s << QString(200, u'0') << Rutina([](Session& s) {
             RowValues datos = empresa::LeerEmpresa(s);
             datos.Set(u"nombre"_s, u"OTRA"_s);
             return empresa::GuardarEmpresa(s, datos);
           })
        << cambios;
    QTest::newRow("costos nuevos")
        << false << u"Productos"_s << u"NSS"_s << costos(Modo::kAgregar, u"B2"_s) << altas;
    QTest::newRow("costos cambiados")
        << false << u"Productos"_s << u"SSN"_s << costos(Modo::kActualizar, u"A1"_s) << cambios;
    QTest::newRow("costos sin ModificarCosto")
        << false << u"ModificarCosto"_s << u"N"_s << costos(Modo::kActualizar, u"A1"_s)
        << u"Este usuario no tiene permisos para modificar costos"_s;
    QTest::newRow("marca de baja")
        << false << u"Marcas"_s << u"SNS"_s << Rutina(MarcaDeBaja) << bajas;
    QTest::newRow("línea de baja")
        << false << u"Lineas"_s << u"SNS"_s << Rutina(LineaDeBaja) << bajas;
    QTest::newRow("producto de baja")
        << false << u"Productos"_s << u"SNS"_s << Rutina(ProductoDeBaja) << bajas;
    QTest::newRow("agente de baja")
        << false << u"Agentes"_s << u"SNS"_s << Rutina(AgenteDeBaja) << bajas;
    QTest::newRow("único administrador")
        << true << QString() << QString()
        << Rutina([](Session& s) { return BorrarUsuario(s, u"ANA"_s); })
        << u"No se puede borrar al único administrador de la empresa"_s;
  }
  // A routine called directly, as a user without its right, refuses with the message and
  // leaves every row as it was.
  void RutinaSinDerechoNoEscribe() {
    QFETCH(bool, administrador);
    QFETCH(QString, columna);
    QFETCH(QString, derecho);
    QFETCH(Rutina, rutina);
    QFETCH(QString, mensaje);
    VENTARIX_COMPANY_CONNECTION(company, c);
    QVERIFY(Sembrar(c));
    Session s = company.MakeSession();
    s.Usuario = administrador ? u"ANA"_s : u"LUIS"_s;
    s.Administrador = administrador;
    if (!columna.isEmpty()) s.usuario.Set(columna, derecho);
    const QString antes = Huella(s);
    const Outcome outcome = rutina(s);
    QCOMPARE(outcome.message, mensaje);
    QCOMPARE(outcome.icon, MessageIcon::kWarning);
    QCOMPARE(Huella(s), antes);
  }

  // ---- Deleting ----

  // Only an administrator deletes; once the company's first administrator is gone the next
  // start still finds the other one.
  void BorrarUsuarios() {
    VENTARIX_COMPANY(company);
    Session s = company.MakeSession();
    QVERIFY(AltaUsuario(s, Datos(u"ANA"_s, u"UNO"_s, u"1"_s)));
    QVERIFY(AltaUsuario(s, Datos(u"LUIS"_s, u"DOS"_s, u"1"_s, false, true)));
    QVERIFY(AltaUsuario(s, Datos(u"PEDRO"_s, u"TRES"_s, u"1"_s, true)));

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
