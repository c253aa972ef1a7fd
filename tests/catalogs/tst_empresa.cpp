// Company settings and terminal settings on both engines: the company screen's checks in their
// order, a save seen by the next session load, the logo and its size, mail providers told
// again from the server's name, the PAC test account, and each user's point-of-sale forms with
// the series they fall back to.
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include "catalogs/configurar_datos.h"
#include "catalogs/empresa_cuentas.h"
#include "catalogs/empresa_datos.h"
#include "catalogs/empresa_logotipo.h"
#include "core/database.h"
#include "core/session_load.h"
#include "core/usuarios.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace Qt::StringLiterals;

namespace {

// A company row that passes every check: the shop of the examples.
RowValues EmpresaCompleta() {
  RowValues e;
  const std::pair<const char*, const char*> valores[] = {
      {"rfc", "EKU9003173C9"},
      {"empresa", "FERRETERÍA KEMPER"},
      {"nombre", "ESCUELA KEMPER URGATE SA DE CV"},
      {"calle", "AV. REVOLUCIÓN"},
      {"noexterior", "1425"},
      {"colonia", "CAMPESTRE"},
      {"localidad", "CIUDAD DE MÉXICO"},
      {"municipio", "ÁLVARO OBREGÓN"},
      {"estado", "CIUDAD DE MÉXICO"},
      {"pais", "MÉXICO"},
      {"codigopostal", "01040"}};
  for (const auto& [columna, valor] : valores) {
    e.Set(QString::fromLatin1(columna), QString::fromUtf8(valor));
  }
  return e;
}

QVariant Valor(const Session& s, const QString& sentencia, const QVariantList& valores = {}) {
  Connection c(s.Cadena);
  return c.Scalar(sentencia, valores);
}

// A session as after login and the splash's load.
Session Cargada(const testing::TestCompany& company, const QString& usuario = u"ADMINISTRADOR"_s,
                bool administrador = true) {
  Session s = company.MakeSession();
  s.Usuario = usuario;
  s.Administrador = administrador;
  CargarSesion(s);
  return s;
}

QByteArray Jpeg(int bytes) {
  QByteArray datos("\xFF\xD8\xFF\xE0");
  datos.append(QByteArray(bytes - datos.size(), 'x'));
  return datos;
}

QString Escribir(const QTemporaryDir& dir, const QString& nombre, const QByteArray& datos) {
  const QString ruta = dir.filePath(nombre);
  QFile file(ruta);
  if (!file.open(QIODevice::WriteOnly)) return {};
  file.write(datos);
  return ruta;
}

}  // namespace

class TestEmpresa : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  // ---- Company row ----

  // One field spoiled at a time (or two, to see which comes first): the message, its icon and
  // the field that takes the focus.
  void RevisionEnOrden_data() {
    QTest::addColumn<QStringList>("cambios");  // column=value pairs
    QTest::addColumn<QString>("mensaje");
    QTest::addColumn<QString>("campo");
    QTest::addColumn<QString>("aviso");
    const auto fila = [](const char* nombre, QStringList cambios, QString mensaje = {},
                         QString campo = {}, QString aviso = {}) {
      QTest::newRow(nombre) << cambios << mensaje << campo << aviso;
    };
    const QString rfc = u"El RFC de éste cliente no es válido"_s;
    const QString falta = u"Se requiere la entrada de "_s;
    fila("rfc corto", {u"rfc=EKU900317"_s}, rfc, u"Rfc"_s);
    fila("rfc con mes 13", {u"rfc=EKU9013173C9"_s}, rfc, u"Rfc"_s,
         u"El mes no corresponde al RFC"_s);
    fila("rfc con día 32", {u"rfc=GOMA8002325K1"_s}, rfc, u"Rfc"_s,
         u"El día no corresponde al RFC"_s);
    fila("rfc antes que la calle", {u"calle="_s, u"rfc=X"_s}, rfc, u"Rfc"_s);
    fila("calle antes que colonia", {u"colonia="_s, u"calle="_s}, falta + u"una nombre de Calle"_s,
         u"Calle"_s);
    fila("no exterior", {u"noexterior="_s}, falta + u"un No. Exterior"_s, u"NoExterior"_s);
    fila("colonia", {u"colonia="_s}, falta + u"una Colonia"_s, u"Colonia"_s);
    fila("localidad", {u"localidad="_s}, falta + u"una Localidad"_s, u"Localidad"_s);
    fila("municipio", {u"municipio="_s}, falta + u"un Municipio"_s, u"Municipio"_s);
    fila("estado", {u"estado="_s}, falta + u"un Estado"_s, u"Estado"_s);
    fila("país", {u"pais="_s}, falta + u"un País"_s, u"Pais"_s);
    fila("código postal de 4", {u"codigopostal=1040"_s}, falta + u"un Código Postal"_s,
         u"CodigoPostal"_s);
    fila("todo en orden", {});
    fila("rfc con guiones y minúsculas", {u"rfc=eku-900317-3c9"_s});
  }
  void RevisionEnOrden() {
    QFETCH(QStringList, cambios);
    QFETCH(QString, mensaje);
    QFETCH(QString, campo);
    QFETCH(QString, aviso);
    VENTARIX_COMPANY(company);
    Session s = Cargada(company);
    RowValues datos = EmpresaCompleta();
    for (const QString& cambio : cambios) {
      datos.Set(cambio.section(u'=', 0, 0), cambio.section(u'=', 1));
    }
    Outcome aviso_rfc;
    const Outcome revision = empresa::GuardarEmpresa(s, datos, &aviso_rfc);
    QCOMPARE(revision.message, mensaje);
    QCOMPARE(revision.field, campo);
    QCOMPARE(aviso_rfc.message, aviso);
    if (!aviso.isEmpty()) QCOMPARE(aviso_rfc.icon, MessageIcon::kStop);
    if (mensaje.isEmpty()) {
      QVERIFY(revision.ok);
      QCOMPARE(Valor(s, u"select count(*) from empresa"_s).toInt(), 1);
    } else {
      QCOMPARE(revision.icon, MessageIcon::kWarning);
      // A refused save writes nothing.
      QCOMPARE(Valor(s, u"select count(*) from empresa"_s).toInt(), 0);
    }
  }

  // A new company opens on the session's defaults with its RFC to be typed; the first save
  // adds row 1, the next updates it, and the next session load runs on the new values: the
  // company folder follows the RFC, upper case follows its flag. A product code change under
  // way belongs to its own screen: saving the company keeps it. A number too big for its
  // column is refused before anything is written.
  void GuardarYRecargar() {
    VENTARIX_COMPANY(company);
    Session s = Cargada(company);
    QCOMPARE(s.empresa.Text(u"rfc"_s), u"XAXX010101000"_s);
    RowValues datos = empresa::LeerEmpresa(s);
    QCOMPARE(datos.Text(u"rfc"_s), QString());
    QCOMPARE(datos.Number(u"impuesto"_s), 16.0);
    QCOMPARE(datos.Text(u"moneda"_s), u"MXN"_s);
    QCOMPARE(datos.Text(u"puertosmtp"_s), u"587"_s);

    const RowValues completa = EmpresaCompleta();
    for (auto it = completa.All().cbegin(); it != completa.All().cend(); ++it) {
      datos.Set(it.key(), it.value());
    }
    datos.Set(u"rfc"_s, u"eku-900317-3c9"_s);
    datos.Set(u"impuesto"_s, u"8.00"_s);
    datos.Set(u"respaldar"_s, u"7"_s);
    datos.Set(u"tallas"_s, u"S"_s);
    datos.Set(u"utilizar_mayusculas"_s, u"N"_s);
    datos.Set(u"revision"_s, u"LUNES 'Y' MARTES"_s);
    datos.Set(u"password"_s, u" clave'con comilla"_s);
    QVERIFY(empresa::GuardarEmpresa(s, datos));

    CargarSesion(s);
    QCOMPARE(s.empresa.Text(u"rfc"_s), u"EKU9003173C9"_s);
    QCOMPARE(s.empresa.Text(u"empresa"_s), u"FERRETERÍA KEMPER"_s);
    QCOMPARE(s.empresa.Number(u"impuesto"_s), 8.0);
    QCOMPARE(s.empresa.Integer(u"respaldar"_s), 7);
    QVERIFY(s.empresa.Flag(u"tallas"_s));
    QVERIFY(!s.UtilizarMayusculas);
    QCOMPARE(s.empresa.Text(u"moneda"_s), u"MXN"_s);
    // Quotes leave the texts, never the passwords.
    QCOMPARE(s.empresa.Text(u"revision"_s), u"LUNES Y MARTES"_s);
    QCOMPARE(s.empresa.Text(u"password"_s), u" clave'con comilla"_s);
    QVERIFY(s.CarpetaEmpresa.endsWith(u"/EKU9003173C9"_s));

    {
      Connection c(s.Cadena);
      QVERIFY(testing::Escribir(
          c, u"update empresa set \"codigo actual\" = 'A1', \"codigo nuevo\" = 'B1'"_s));
    }
    datos = empresa::LeerEmpresa(s);
    datos.Set(u"codigo actual"_s, QString());
    datos.Set(u"empresa"_s, u"KEMPER MATRIZ"_s);
    datos.Set(u"impuesto"_s, 16);
    QVERIFY(empresa::GuardarEmpresa(s, datos));
    QCOMPARE(Valor(s, u"select count(*) from empresa"_s).toInt(), 1);
    QCOMPARE(Valor(s, u"select numero from empresa"_s).toInt(), 1);
    QCOMPARE(Valor(s, u"select \"codigo actual\" || \"codigo nuevo\" from empresa"_s).toString(),
             u"A1B1"_s);
    CargarEmpresa(s);
    QCOMPARE(s.empresa.Text(u"empresa"_s), u"KEMPER MATRIZ"_s);
    QCOMPARE(s.empresa.Number(u"impuesto"_s), 16.0);

    datos.Set(u"respaldar"_s, u"40000"_s);
    datos.Set(u"empresa"_s, u"NO SE GUARDA"_s);
    const Outcome fuera = empresa::GuardarEmpresa(s, datos);
    QCOMPARE(fuera.message, u"Se requiere un número entre 0 y 32767"_s);
    QCOMPARE(fuera.field, u"respaldar"_s);
    QCOMPARE(Valor(s, u"select empresa from empresa"_s).toString(), u"KEMPER MATRIZ"_s);
  }

  // ---- Logo ----

  void TamanoLogotipo_data() {
    QTest::addColumn<qint64>("bytes");
    QTest::addColumn<QString>("texto");
    QTest::newRow("sin logo") << qint64(0) << QString();
    QTest::newRow("un byte") << qint64(1) << u"1 Kb"_s;
    QTest::newRow("justo 1 Kb") << qint64(1024) << u"1 Kb"_s;
    QTest::newRow("un byte más") << qint64(1025) << u"2 Kb"_s;
    QTest::newRow("13 Kb") << qint64(13 * 1024) << u"13 Kb"_s;
    QTest::newRow("el máximo") << empresa::kLogotipoMaximo << u"4096 Kb"_s;
  }
  void TamanoLogotipo() {
    QFETCH(qint64, bytes);
    QFETCH(QString, texto);
    QCOMPARE(empresa::TamanoLogotipo(bytes), texto);
  }

  // Files that are no picture, empty, missing or too big are refused and leave the logo as it
  // was; a picture is read whole.
  void LeerLogotipo_data() {
    QTest::addColumn<QByteArray>("contenido");
    QTest::addColumn<QString>("mensaje");
    QTest::newRow("jpeg") << Jpeg(3000) << QString();
    QTest::newRow("bmp") << QByteArray("BM").append(QByteArray(500, '\0')) << QString();
    QTest::newRow("png") << QByteArray("\x89PNG\r\n\x1A\n....") << QString();
    QTest::newRow("texto") << QByteArray("hola")
                           << u"El archivo logo.jpg no es una imagen JPG o BMP"_s;
    QTest::newRow("vacío") << QByteArray() << u"El archivo logo.jpg no es una imagen JPG o BMP"_s;
    QTest::newRow("demasiado grande")
        << Jpeg(int(empresa::kLogotipoMaximo) + 1) << u"El logotipo no debe pasar de 4096 Kb"_s;
  }
  void LeerLogotipo() {
    QFETCH(QByteArray, contenido);
    QFETCH(QString, mensaje);
    QTemporaryDir dir;
    const QString ruta = Escribir(dir, u"logo.jpg"_s, contenido);
    QByteArray imagen = "anterior";
    const Outcome leido = empresa::LeerLogotipo(ruta, &imagen);
    QCOMPARE(leido.message, mensaje);
    QCOMPARE(imagen, mensaje.isEmpty() ? contenido : QByteArray("anterior"));
    if (!mensaje.isEmpty()) QCOMPARE(leido.icon, MessageIcon::kWarning);
  }

  // The saved logo reaches the extracted file of the next load only once the old extraction
  // is discarded; a row saved without the column keeps its logo.
  void LogotipoGuardadoYExtraido() {
    VENTARIX_COMPANY(company);
    Session s = Cargada(company);
    RowValues datos = EmpresaCompleta();
    datos.Set(u"telefonos"_s, u"55 5661 2040"_s);
    datos.Set(u"logotipo"_s, Jpeg(2500));
    QVERIFY(empresa::GuardarEmpresa(s, datos));
    CargarSesion(s);
    QFile primero(s.ArchivoLogo);
    QVERIFY(primero.open(QIODevice::ReadOnly));
    QCOMPARE(primero.readAll(), Jpeg(2500));
    primero.close();

    datos = empresa::LeerEmpresa(s);
    QCOMPARE(empresa::TamanoLogotipo(datos.Value(u"logotipo"_s).toByteArray().size()), u"3 Kb"_s);
    datos.Set(u"logotipo"_s, Jpeg(900));
    QVERIFY(empresa::GuardarEmpresa(s, datos));
    CargarSesion(s);
    QCOMPARE(QFileInfo(s.ArchivoLogo).size(), 2500);  // still the old extraction
    empresa::DescartarLogoExtraido(s);
    CargarSesion(s);
    QCOMPARE(QFileInfo(s.ArchivoLogo).size(), 900);

    // A row without the column keeps the logo, as it keeps every other column it lacks.
    RowValues sin_logo = EmpresaCompleta();
    QVERIFY(empresa::GuardarEmpresa(s, sin_logo));
    QCOMPARE(empresa::LeerEmpresa(s).Value(u"logotipo"_s).toByteArray().size(), 900);
    QCOMPARE(empresa::LeerEmpresa(s).Text(u"telefonos"_s), u"55 5661 2040"_s);
    sin_logo.Set(u"logotipo"_s, QVariant());
    QVERIFY(empresa::GuardarEmpresa(s, sin_logo));
    QVERIFY(empresa::LeerEmpresa(s).Value(u"logotipo"_s).isNull());
  }

  // ---- Mail and PAC accounts ----

  void CorreoDeServidor_data() {
    QTest::addColumn<QString>("servidor");
    QTest::addColumn<int>("indice");
    QTest::newRow("hotmail") << u"smtp.live.com"_s << 0;
    QTest::newRow("outlook en vivo") << u"SMTP.LIVE.COM"_s << 0;
    QTest::newRow("yahoo") << u" smtp.mail.yahoo.com "_s << 1;
    QTest::newRow("gmail") << u"smtp.gmail.com"_s << 2;
    QTest::newRow("relevo propio") << QString::fromLatin1(kServidorSMTPPredeterminado) << 3;
    QTest::newRow("otro") << u"mail.ferreteriakemper.example"_s << -1;
    QTest::newRow("vacío") << QString() << -1;
  }
  void CorreoDeServidor() {
    QFETCH(QString, servidor);
    QFETCH(int, indice);
    QCOMPARE(empresa::CorreoDeServidor(servidor), indice);
  }

  // Only the relay brings its sender; a choice out of the list changes nothing.
  void AplicarCorreo() {
    RowValues datos;
    datos.Set(u"de"_s, u"ventas@kemper.example"_s);
    empresa::AplicarCorreo(0, datos);
    QCOMPARE(datos.Text(u"servidorsmtp"_s), u"smtp.live.com"_s);
    QCOMPARE(datos.Text(u"puertosmtp"_s), u"25"_s);
    QCOMPARE(datos.Text(u"de"_s), u"ventas@kemper.example"_s);
    empresa::AplicarCorreo(4, datos);
    QCOMPARE(datos.Text(u"servidorsmtp"_s), u"smtp.live.com"_s);
    empresa::AplicarCorreo(3, datos);
    QCOMPARE(datos.Text(u"de"_s), QString::fromLatin1(kDePredeterminado));
    QCOMPARE(datos.Text(u"puertosmtp"_s), u"587"_s);
  }

  // ---- Terminal settings ----

  // The forms in use follow the series saved; with none, all three under "A".
  void DocumentosTpv_data() {
    QTest::addColumn<QStringList>("series");
    QTest::addColumn<QString>("documentos");
    QTest::addColumn<QString>("serie");
    QTest::newRow("ninguna") << QStringList{u""_s, u""_s, u""_s} << u"T,N,C"_s << u"A"_s;
    QTest::newRow("solo cotización") << QStringList{u""_s, u""_s, u"q"_s} << u"C"_s << u"Q"_s;
    QTest::newRow("ticket y cotización")
        << QStringList{u"t1"_s, u""_s, u"c"_s} << u"T,C"_s << u"T1"_s;
    QTest::newRow("solo nota") << QStringList{u" "_s, u"n"_s, u""_s} << u"N"_s << u"N"_s;
    QTest::newRow("las tres") << QStringList{u"T"_s, u"N"_s, u"C"_s} << u"T,N,C"_s << u"T"_s;
  }
  void DocumentosTpv() {
    QFETCH(QStringList, series);
    QFETCH(QString, documentos);
    QFETCH(QString, serie);
    VENTARIX_COMPANY(company);
    Session s = Cargada(company);
    RowValues fila = configurar::LeerConfiguracion(s, s.Usuario);
    for (int i = 0; i < 3; ++i) {
      fila.Set(configurar::Formularios()[i] + u"Serie"_s, series[i]);
    }
    QVERIFY(configurar::GuardarConfiguracion(s, s.Usuario, fila));
    // Saving one's own row reloads the session's terminal block at once.
    QCOMPARE(s.DocumentosTpv, documentos);
    QCOMPARE(s.SerieTpv, serie);
    Session otra = Cargada(company);
    QCOMPARE(otra.DocumentosTpv, documentos);
    QCOMPARE(otra.SerieTpv, serie);
    // The row keeps what was typed, in upper case: the fall-back is the session's alone.
    QCOMPARE(configurar::LeerConfiguracion(s, s.Usuario).Text(u"TicketSerie"_s),
             series[0].trimmed().toUpper());
  }

  // A user without a row works on the defaults with all three forms under serie "A". An
  // administrator sets up a cashier's terminal, printed lines included; the cashier's next
  // session runs on it and the administrator's own settings stay as they were. The cashier,
  // no administrator, sees and saves only his own row.
  void AdministradorConfiguraOtroUsuario() {
    VENTARIX_COMPANY(company);
    Session admin = Cargada(company);
    QCOMPARE(admin.DocumentosTpv, u"T,N,C"_s);
    QCOMPARE(admin.SerieTpv, u"A"_s);
    QCOMPARE(admin.configurar.Integer(u"PantallaPorDefaultEnTpv"_s), 2);
    QCOMPARE(admin.configurar.Integer(u"ClientePorDefaultEnTpv"_s), 1);
    QCOMPARE(admin.configurar.Text(u"EntrarDirectamenteATpv"_s), u"N"_s);
    const RowValues propia = configurar::LeerConfiguracion(admin, admin.Usuario);
    QCOMPARE(propia.Integer(u"PantallaDeCobroEnTpv"_s), 1);
    QVERIFY(propia.Flag(u"PermitirModificarPrecioEnTpv"_s));
    QCOMPARE(propia.Text(u"TicketSerie"_s), QString());  // shown as stored: nothing yet
    QVERIFY(usuarios::AltaUsuario(admin, {u"ANA"_s, u"UNO"_s, u"1"_s, true, false}));
    QVERIFY(usuarios::AltaUsuario(admin, {u"LUIS"_s, u"DOS"_s, u"2"_s, false, false}));
    QCOMPARE(configurar::UsuariosConfigurables(admin),
             (QStringList{u"ADMINISTRADOR"_s, u"ANA"_s, u"LUIS"_s}));

    RowValues fila = configurar::LeerConfiguracion(admin, u"LUIS"_s);
    fila.Set(u"PantallaPorDefaultEnTpv"_s, u"3"_s);
    fila.Set(u"ClientePorDefaultEnTpv"_s, u"25"_s);
    fila.Set(u"NotaSerie"_s, u"mos"_s);
    fila.Set(u"NotaImpresionesEnCopia"_s, u"2"_s);
    fila.Set(u"notaenc0"_s, u"FERRETERÍA KEMPER"_s);
    fila.Set(u"notapie9"_s, u"GRACIAS POR SU COMPRA"_s);
    QVERIFY(configurar::GuardarConfiguracion(admin, u"LUIS"_s, fila));
    QCOMPARE(admin.DocumentosTpv, u"T,N,C"_s);
    QCOMPARE(admin.configurar.Integer(u"PantallaPorDefaultEnTpv"_s), 2);

    Session luis = Cargada(company, u"LUIS"_s, false);
    QCOMPARE(luis.DocumentosTpv, u"N"_s);
    QCOMPARE(luis.SerieTpv, u"MOS"_s);
    QCOMPARE(luis.configurar.Integer(u"PantallaPorDefaultEnTpv"_s), 3);
    QCOMPARE(luis.configurar.Integer(u"ClientePorDefaultEnTpv"_s), 25);
    QCOMPARE(luis.configurar.Integer(u"NotaImpresionesEnCopia"_s), 2);
    QCOMPARE(luis.configurar.Text(u"notaenc0"_s), u"FERRETERÍA KEMPER"_s);
    QCOMPARE(luis.configurar.Text(u"notapie9"_s), u"GRACIAS POR SU COMPRA"_s);

    // A second save changes the row rather than adding one.
    fila.Set(u"notapie9"_s, u"VUELVA PRONTO"_s);
    QVERIFY(configurar::GuardarConfiguracion(admin, u"LUIS"_s, fila));
    QCOMPARE(
        Valor(admin, u"select count(*) from configurar where usuario = ?"_s, {u"LUIS"_s}).toInt(),
        1);
    QCOMPARE(configurar::LeerConfiguracion(admin, u"LUIS"_s).Text(u"notapie9"_s),
             u"VUELVA PRONTO"_s);

    QCOMPARE(configurar::UsuariosConfigurables(luis), QStringList{u"LUIS"_s});
    RowValues ajena = configurar::LeerConfiguracion(luis, u"ANA"_s);
    const Outcome ajeno = configurar::GuardarConfiguracion(luis, u"ANA"_s, ajena);
    QCOMPARE(ajeno.message, u"Este usuario no tiene permisos para cambios de registros"_s);
    QCOMPARE(Valor(luis, u"select count(*) from configurar where usuario = 'ANA'"_s).toInt(), 0);
    fila = configurar::LeerConfiguracion(luis, u"LUIS"_s);
    fila.Set(u"TicketSerie"_s, u"L"_s);
    QVERIFY(configurar::GuardarConfiguracion(luis, u"LUIS"_s, fila));
    QCOMPARE(luis.SerieTpv, u"L"_s);
  }

  // Numbered choices out of their range are refused on their field, before anything is saved.
  void RangosDeConfiguracion_data() {
    QTest::addColumn<QString>("campo");
    QTest::addColumn<QString>("valor");
    QTest::addColumn<QString>("mensaje");
    QTest::addColumn<QString>("foco");
    QTest::newRow("pantalla 4") << u"PantallaPorDefaultEnTpv"_s << u"4"_s
                                << u"Se requiere la pantalla de venta 1, 2 o 3"_s
                                << u"PantallaPorDefaultEnTpv"_s;
    QTest::newRow("formato 6") << u"CotizacionFormatoCopia"_s << u"6"_s
                               << u"Se requiere un formato de 0 a 5"_s
                               << u"CotizacionFormatoCopia"_s;
    QTest::newRow("margen enorme") << u"TicketRMS"_s << u"40000"_s
                                   << u"Se requiere un número entre 0 y 32767"_s << u"ticketrms"_s;
    QTest::newRow("copias negativas")
        << u"TicketImpresionesEnCopia"_s << u"-1"_s << u"Se requiere un número entre 0 y 32767"_s
        << u"ticketimpresionesencopia"_s;
    QTest::newRow("formato 5 vale")
        << u"TicketFormatoOriginal"_s << u"5"_s << QString() << QString();
  }
  void RangosDeConfiguracion() {
    QFETCH(QString, campo);
    QFETCH(QString, valor);
    QFETCH(QString, mensaje);
    QFETCH(QString, foco);
    VENTARIX_COMPANY(company);
    Session s = Cargada(company);
    RowValues fila = configurar::LeerConfiguracion(s, s.Usuario);
    fila.Set(campo, valor);
    const Outcome guardado = configurar::GuardarConfiguracion(s, s.Usuario, fila);
    QCOMPARE(guardado.message, mensaje);
    QCOMPARE(guardado.field, foco);
    QCOMPARE(Valor(s, u"select count(*) from configurar"_s).toInt(), mensaje.isEmpty() ? 1 : 0);
  }
};

QTEST_GUILESS_MAIN(TestEmpresa)
#include "tst_empresa.moc"
