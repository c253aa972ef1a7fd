// Folio ranges: the order of the checks per scheme, the series rules, what each scheme writes,
// the certificate and key kept across changes, the CBB image, the material restored on opening
// and the default range; the database cases on both engines.
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include "core/database.h"
#include "core/dialect.h"
#include "core/mFunciones.h"
#include "edocs/certificado.h"
#include "edocs/folios_prueba.h"
#include "edocs/folios_rangos.h"
#include "edocs/herramientas.h"
#include "support/document_rows.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using edocs::Esquema;
using edocs::FamiliaFolios;
using testing::Leer;
using testing::SesionFolios;
using testing::Valor;

namespace {

const QString kCsd = QStringLiteral(VENTARIX_SHARED_DIR "/sat/csd/");

QString Csd(const QString& base, const QString& extension) { return kCsd + base + extension; }

// A range every check of its scheme accepts; the sealed ones carry the 5867 test pair.
edocs::RangoFolios Completo(Esquema esquema) {
  edocs::RangoFolios r;
  r.esquema = esquema;
  r.folio_inicial = u"1"_s;
  r.folio_final = u"500"_s;
  r.regimen_fiscal = u"REGIMEN GENERAL DE LEY PERSONAS MORALES"_s;
  r.no_aprobacion = u"12345"_s;
  r.ano_aprobacion = u"2011"_s;
  r.archivo_certificado = u"AAA010101AAA_20001000000100005867.cer"_s;
  r.archivo_llave = u"AAA010101AAA_20001000000100005867.key"_s;
  r.password = u"12345678a"_s;
  edocs::LeerInforme(Csd(u"AAA010101AAA_20001000000100005867"_s, u".cer"_s), &r);
  return r;
}

edocs::MaterialNuevo ParDePrueba(const QString& base) {
  return {Csd(base, u".cer"_s), Csd(base, u".key"_s), {}};
}

// Saves a new range and hands back its number (0 when refused, with the message in `error`).
qint32 Alta(const Session& s, FamiliaFolios f, edocs::RangoFolios r,
            const edocs::MaterialNuevo& nuevo = {}, QString* error = nullptr) {
  const Outcome o = edocs::GuardarRango(s, f, true, &r, nuevo);
  if (error) *error = o.message;
  return o ? r.numero : 0;
}

}  // namespace

class TestFolios : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  // Whatever keeps the key from opening (a wrong password, a missing file, a certificate
  // chosen as the key) gets the password's message.
  void ContrasenaDeLaLlave() {
    QFETCH_GLOBAL(QString, engine);
    if (engine != u"sqlite"_s) QSKIP("no database here");
    const QString base = u"AAA010101AAA_20001000000100005867"_s;
    QVERIFY(edocs::RevisarContrasena(Csd(base, u".key"_s), u"12345678a"_s));
    const QString mensaje = u"Esta contraseña no corresponde al archivo llave privada"_s;
    for (const auto& [archivo, password] : {std::pair{Csd(base, u".key"_s), u"12345678b"_s},
                                            std::pair{Csd(base, u".cer"_s), u"12345678a"_s},
                                            std::pair{kCsd + u"no_existe.key"_s, u"12345678a"_s}}) {
      const Outcome o = edocs::RevisarContrasena(archivo, password);
      QCOMPARE(o.message, mensaje);
      QCOMPARE(o.field, u"Password"_s);
    }
  }

  // A blank range is walked to a valid one by filling in whatever each message names: the
  // messages come in the order of the scheme's checks, and none of another scheme shows.
  void OrdenDeLasRevisiones_data() {
    QTest::addColumn<int>("esquema");
    QTest::addColumn<QStringList>("campos");
    const QStringList folios = {u"FolioInicial"_s, u"FolioFinal"_s};
    const QStringList sellado = {u"ArchivoCertificado"_s, u"ArchivoLlave"_s, u"Password"_s,
                                 u"ArchivoCertificado"_s};
    const QStringList aprobacion = {u"NoAprobacion"_s, u"AnoAprobacion"_s};
    QTest::newRow("CFD") << int(Esquema::kCfd)
                         << folios + QStringList{u"RegimenFiscal"_s} + aprobacion + sellado;
    QTest::newRow("CFDI") << int(Esquema::kCfdi)
                          << folios + QStringList{u"RegimenFiscal"_s} + sellado;
    QTest::newRow("CBB") << int(Esquema::kCbb)
                         << folios + QStringList{u"RegimenFiscal"_s} + aprobacion;
    QTest::newRow("NOTA") << int(Esquema::kNota) << folios;
  }
  void OrdenDeLasRevisiones() {
    QFETCH_GLOBAL(QString, engine);
    if (engine != u"sqlite"_s) QSKIP("no database here");
    QFETCH(int, esquema);
    QFETCH(QStringList, campos);
    const edocs::RangoFolios completo = Completo(static_cast<Esquema>(esquema));
    edocs::RangoFolios r;
    r.esquema = completo.esquema;
    QStringList vistos, mensajes;
    for (int vuelta = 0; vuelta < 12; ++vuelta) {
      const Outcome o = edocs::RevisarRango(r);
      if (o) break;
      QCOMPARE(o.icon, MessageIcon::kWarning);
      vistos << o.field;
      mensajes << o.message;
      if (o.field == u"FolioInicial"_s) {
        r.folio_inicial = u"10"_s;  // then the end falls below the start
        r.folio_final = u"9"_s;
      } else if (o.field == u"FolioFinal"_s) {
        r.folio_final = u"10"_s;
      } else if (o.field == u"RegimenFiscal"_s) {
        r.regimen_fiscal = completo.regimen_fiscal;
      } else if (o.field == u"NoAprobacion"_s) {
        r.no_aprobacion = completo.no_aprobacion;
      } else if (o.field == u"AnoAprobacion"_s) {
        r.ano_aprobacion = completo.ano_aprobacion;
      } else if (o.field == u"ArchivoCertificado"_s && r.archivo_certificado.isEmpty()) {
        r.archivo_certificado = completo.archivo_certificado;
      } else if (o.field == u"ArchivoCertificado"_s) {
        r.no_certificado = completo.no_certificado;
        r.valido_desde = completo.valido_desde;
        r.valido_hasta = completo.valido_hasta;
      } else if (o.field == u"ArchivoLlave"_s) {
        r.archivo_llave = completo.archivo_llave;
      } else if (o.field == u"Password"_s) {
        r.password = completo.password;
      }
    }
    QCOMPARE(vistos, campos);
    QCOMPARE(mensajes.first(), u"Se requiere la numeración de folios mayor a cero"_s);
    QCOMPARE(mensajes[1], u"Se requiere una numeración correcta en folios"_s);
    if (edocs::EsSellado(r.esquema)) {
      QCOMPARE(mensajes.last(), u"Se requiere un archivo certificado válido"_s);
      QCOMPARE(mensajes.count(u"Se requiere un archivo certificado"_s), 1);
    }
  }

  // Each character must be A to Z; a lower-case series is refused as typed, not upper-cased
  // on the way, and nothing is written.
  void SerieDeLetras_data() {
    QTest::addColumn<QString>("serie");
    QTest::addColumn<bool>("aceptada");
    QTest::newRow("vacía") << QString() << true;
    QTest::newRow("letras") << u"FAC"_s << true;
    QTest::newRow("minúsculas") << u"fa"_s << false;
    QTest::newRow("dígito") << u"A1"_s << false;
    QTest::newRow("eñe") << u"Ñ"_s << false;
    QTest::newRow("guion") << u"A-"_s << false;
    QTest::newRow("blanco") << u"A B"_s << false;
  }
  void SerieDeLetras() {
    VENTARIX_COMPANY(company);
    QFETCH(QString, serie);
    QFETCH(bool, aceptada);
    const Session s = SesionFolios(company);
    edocs::RangoFolios r = Completo(Esquema::kNota);
    r.serie = serie;
    QString error;
    const qint32 numero = Alta(s, FamiliaFolios::kFacturas, r, {}, &error);
    QCOMPARE(numero != 0, aceptada);
    QCOMPARE(Valor(s, u"select count(*) from \"folios facturas\""_s).toInt(), aceptada ? 1 : 0);
    if (aceptada) {
      QCOMPARE(Valor(s, u"select serie from \"folios facturas\""_s).toString(), serie);
    } else {
      QCOMPARE(error, u"Se requiere que la serie sea únicamente texto [A-Z]"_s);
    }
  }

  // A series belongs to one scheme within its table: a second range of the same series and
  // scheme is welcome, another scheme is told which one holds it ("CFDi" for CFDI); the
  // credit-note ranges are a table of their own, where a user without the right to add has
  // nothing written.
  void SerieDeUnSoloEsquema() {
    VENTARIX_COMPANY(company);
    Session s = SesionFolios(company);
    edocs::RangoFolios cfdi = Completo(Esquema::kCfdi);
    cfdi.serie = u"F"_s;
    QVERIFY(Alta(s, FamiliaFolios::kFacturas, cfdi,
                 ParDePrueba(u"AAA010101AAA_20001000000100005867"_s)));
    edocs::RangoFolios cbb = Completo(Esquema::kCbb);
    cbb.serie = u"G"_s;
    QVERIFY(Alta(s, FamiliaFolios::kFacturas, cbb));

    cfdi.folio_inicial = u"501"_s;
    cfdi.folio_final = u"900"_s;
    QCOMPARE(Alta(s, FamiliaFolios::kFacturas, cfdi), 3);
    const Outcome nota = edocs::RevisarSerie(s, FamiliaFolios::kFacturas, u"F"_s, Esquema::kNota);
    QCOMPARE(nota.message, u"Esta serie ya esta registrada con un esquema CFDi"_s);
    QCOMPARE(nota.field, u"Serie"_s);
    QString error;
    edocs::RangoFolios otro = Completo(Esquema::kCfd);
    otro.serie = u"G"_s;
    QCOMPARE(Alta(s, FamiliaFolios::kFacturas, otro,
                  ParDePrueba(u"AAA010101AAA_20001000000100005867"_s), &error),
             0);
    QCOMPARE(error, u"Esta serie ya esta registrada con un esquema CBB"_s);
    QVERIFY(edocs::RevisarSerie(s, FamiliaFolios::kNotas, u"G"_s, Esquema::kNota));
    QCOMPARE(Valor(s, u"select count(*) from \"folios facturas\""_s).toInt(), 3);
    s.usuario.Set(u"FoliosNotas"_s, u"NSS"_s);
    QCOMPARE(Alta(s, FamiliaFolios::kNotas, Completo(Esquema::kNota), {}, &error), 0);
    QCOMPARE(error, u"Este usuario no tiene permisos para el registro de altas"_s);
    QCOMPARE(Valor(s, u"select count(*) from \"folios notas\""_s).toInt(), 0);
  }

  // A NOTA range keeps the numbers and the printed form's texts; whatever the screen still
  // held in the sealed or approval fields, and any file chosen, stays out. A one-folio range
  // counts 1.
  void NotaGuardaSoloNumerosYComunes() {
    VENTARIX_COMPANY(company);
    const Session s = SesionFolios(company);
    edocs::RangoFolios r = Completo(Esquema::kNota);
    r.serie = u"N"_s;
    r.folio_inicial = u"7"_s;
    r.folio_final = u"7"_s;
    r.domicilio = u"<EmisorDireccion>"_s;
    r.leyendas = {u"Gracias"_s, QString(), u"<FacturaLetra>"_s};
    r.pagare = u"Debo y pagaré <FacturaTotal>"_s;
    r.imprimir_logotipo = true;
    r.alinear_logotipo = 7;
    edocs::MaterialNuevo nuevo = ParDePrueba(u"AAA010101AAA_20001000000100005867"_s);
    nuevo.cbb = Leer(kCsd + u"index.tsv"_s);
    const qint32 numero = Alta(s, FamiliaFolios::kFacturas, r, nuevo);
    QCOMPARE(numero, 1);
    auto columna = [&s](const char* nombre) {
      return Valor(s, u"select "_s + QLatin1String(nombre) + u" from \"folios facturas\""_s);
    };
    QStringList guardado;
    for (const char* nombre : {"cantidad", "folioinicial", "foliofinal", "esquema", "domicilio",
                               "leyenda1", "leyenda3", "pagare", "imprimirlogotipo", "status"}) {
      guardado << columna(nombre).toString();
    }
    QCOMPARE(guardado, (QStringList{u"1"_s, u"7"_s, u"7"_s, u"NOTA"_s, u"<EmisorDireccion>"_s,
                                    u"Gracias"_s, u"<FacturaLetra>"_s,
                                    u"Debo y pagaré <FacturaTotal>"_s, u"S"_s, u"ALTA"_s}));
    for (const char* nombre :
         {"version", "regimenfiscal", "noaprobacion", "archivocertificado", "archivollave",
          "nocertificado", "algoritmosellodigital", "predeterminar"}) {
      QCOMPARE(columna(nombre).toString(), QString());
    }
    QCOMPARE(columna("anoaprobacion").toInt(), 0);
    QVERIFY(columna("validodesde").isNull());
    QCOMPARE(edocs::ItemsAlinearLogotipo().at(columna("alinearlogotipo").toInt()), u"Izquieda"_s);
    QCOMPARE(Valor(s, u"select count(*) from certificados"_s).toInt(), 0);
    QCOMPARE(Valor(s, u"select count(*) from cbb"_s).toInt(), 0);
  }

  // A CFDI range stores the chosen pair byte for byte with the password; a change without
  // choosing files keeps them (and a password typed then is not stored), a change with a new
  // pair replaces them in the same row. The certificate's number and validity are the ones
  // read from the file (checked against the SAT's index by the key tests).
  void CertificadoSeConservaSinArchivos() {
    VENTARIX_COMPANY(company);
    const Session s = SesionFolios(company);
    const QString par1 = u"AAA010101AAA_20001000000100005867"_s;
    const QString par2 = u"AAA010101AAA_20001000000100005868"_s;
    edocs::RangoFolios r = Completo(Esquema::kCfdi);
    r.serie = u"A"_s;
    r.numero = Alta(s, FamiliaFolios::kNotas, r, ParDePrueba(par1));
    QCOMPARE(r.numero, 1);
    auto material = [&] {
      Connection c(s.Cadena);
      return edocs::LeerMaterial(c, FamiliaFolios::kNotas, r.numero);
    };
    QCOMPARE(material().certificado, Leer(Csd(par1, u".cer"_s)));
    QCOMPARE(material().llave, Leer(Csd(par1, u".key"_s)));
    QCOMPARE(material().password, u"12345678a"_s);
    auto columna = [&s](const char* nombre) {
      return Valor(s, u"select "_s + QLatin1String(nombre) + u" from \"folios notas\""_s);
    };
    const edocs::Certificado cer1 = edocs::LeerCertificadoDeArchivo(Csd(par1, u".cer"_s));
    QCOMPARE(columna("nocertificado").toString(), cer1.NoCertificado);
    QCOMPARE(dialect::ReadDate(columna("validodesde")), cer1.valido_desde);
    QCOMPARE(dialect::ReadDate(columna("validohasta")), cer1.valido_hasta);
    QCOMPARE(columna("version").toString(), u"3.2"_s);
    QCOMPARE(columna("algoritmosellodigital").toString(), u"sha-1"_s);

    r.leyendas[0] = u"Segunda vuelta"_s;
    r.password = u"otra"_s;
    QVERIFY(edocs::GuardarRango(s, FamiliaFolios::kNotas, false, &r, {}));
    QCOMPARE(columna("leyenda1").toString(), u"Segunda vuelta"_s);
    QCOMPARE(material().certificado, Leer(Csd(par1, u".cer"_s)));
    QCOMPARE(material().password, u"12345678a"_s);

    edocs::LeerInforme(Csd(par2, u".cer"_s), &r);
    r.password = u"12345678a"_s;
    QVERIFY(edocs::GuardarRango(s, FamiliaFolios::kNotas, false, &r, ParDePrueba(par2)));
    QCOMPARE(material().certificado, Leer(Csd(par2, u".cer"_s)));
    QCOMPARE(material().llave, Leer(Csd(par2, u".key"_s)));
    QCOMPARE(Valor(s, u"select count(*) from certificados"_s).toInt(), 1);
    QCOMPARE(Valor(s, u"select documento from certificados"_s).toInt(), 1);
    QCOMPARE(columna("nocertificado").toString(),
             edocs::LeerCertificadoDeArchivo(Csd(par2, u".cer"_s)).NoCertificado);
  }

  // The CBB image is stored with the range, replaced, and its row deleted when the image is
  // taken away; the change screen reads it back.
  void ImagenCbb() {
    VENTARIX_COMPANY(company);
    const Session s = SesionFolios(company);
    edocs::RangoFolios r = Completo(Esquema::kCbb);
    const QByteArray imagen = Leer(Csd(u"AAA010101AAA_20001000000100005867"_s, u".cer"_s));
    r.numero = Alta(s, FamiliaFolios::kFacturas, r, {{}, {}, imagen});
    edocs::RangoFolios leido;
    QByteArray cbb;
    QVERIFY(edocs::LeerRango(s, FamiliaFolios::kFacturas, r.numero, &leido, &cbb));
    QCOMPARE(cbb, imagen);
    QCOMPARE(leido.no_aprobacion, u"12345"_s);
    QCOMPARE(leido.ano_aprobacion, u"2011"_s);
    QVERIFY(edocs::GuardarRango(s, FamiliaFolios::kFacturas, false, &r, {{}, {}, "otra"}));
    QCOMPARE(Valor(s, u"select cbb from cbb where documento = 0"_s).toByteArray(),
             QByteArray("otra"));
    QVERIFY(edocs::GuardarRango(s, FamiliaFolios::kFacturas, false, &r, {}));
    QCOMPARE(Valor(s, u"select count(*) from cbb"_s).toInt(), 0);
  }

  // Opening a sealed range's change screen writes the stored pair into CarpetaCer when a file
  // is missing (leaving a present one alone) and brings the password; a range without its
  // stored pair says what is missing.
  void MaterialRestaurado() {
    VENTARIX_COMPANY(company);
    const Session s = SesionFolios(company);
    QVERIFY(QDir(s.CarpetaCer).exists());
    edocs::RangoFolios r = Completo(Esquema::kCfd);
    r.numero =
        Alta(s, FamiliaFolios::kFacturas, r, ParDePrueba(u"AAA010101AAA_20001000000100005867"_s));
    QVERIFY(r.numero > 0);
    const QString cer = s.CarpetaCer + u'/' + r.archivo_certificado;
    const QString key = s.CarpetaCer + u'/' + r.archivo_llave;
    QFile::remove(cer);
    {
      QFile propia(key);
      QVERIFY(propia.open(QIODevice::WriteOnly));
      propia.write("la del usuario");
    }
    edocs::RangoFolios leido;
    QByteArray cbb;
    QVERIFY(edocs::LeerRango(s, FamiliaFolios::kFacturas, r.numero, &leido, &cbb));
    QVERIFY(leido.password.isEmpty());
    QVERIFY(edocs::RestaurarMaterial(s, FamiliaFolios::kFacturas, &leido).empty());
    QCOMPARE(leido.password, u"12345678a"_s);
    QCOMPARE(Leer(cer), Leer(Csd(u"AAA010101AAA_20001000000100005867"_s, u".cer"_s)));
    QCOMPARE(Leer(key), QByteArray("la del usuario"));
    // The folder and what is written in it are the account owner's alone.
    const QFile::Permissions ajenos = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                      QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    QCOMPARE(QFileInfo(s.CarpetaCer).permissions() & (ajenos | QFile::ReadOwner),
             QFile::Permissions(QFile::ReadOwner));
    QCOMPARE(QFileInfo(cer).permissions() & (ajenos | QFile::ReadOwner | QFile::WriteOwner),
             QFile::ReadOwner | QFile::WriteOwner);

    {
      Connection c(s.Cadena);
      QVERIFY(testing::InsertarFila(c, u"folios facturas"_s,
                                    {{u"numero"_s, 9}, {u"esquema"_s, u"CFDI"_s}}));
    }
    leido.numero = 9;
    leido.esquema = Esquema::kCfdi;
    const std::vector<Outcome> avisos =
        edocs::RestaurarMaterial(s, FamiliaFolios::kFacturas, &leido);
    QCOMPARE(avisos.size(), size_t(2));
    QCOMPARE(avisos[0].message, u"Se requiere cargar un certificado (.cer)"_s);
    QCOMPARE(avisos[1].message, u"Se requiere cargar un archivo llave (.key)"_s);
    QCOMPARE(avisos[1].icon, MessageIcon::kStop);
  }

  void NombreQueSaleDeCer_data() {
    QTest::addColumn<QString>("nombre");
    QTest::newRow("carpeta de arriba") << u"../escaped.key"_s;
    QTest::newRow("ruta absoluta") << QDir::tempPath() + u"/escaped.key"_s;
    QTest::newRow("subcarpeta") << u"sub/escaped.key"_s;
    QTest::newRow("diagonal invertida") << u"..\\escaped.key"_s;
    QTest::newRow("unidad") << u"C:escaped.key"_s;
    QTest::newRow("solo puntos") << u".."_s;
  }

  // A key's name that is no plain file name is refused when the range is saved, and when a
  // stored one is restored nothing is written, least of all outside cer/.
  void NombreQueSaleDeCer() {
    QFETCH(QString, nombre);
    VENTARIX_COMPANY(company);
    const Session s = SesionFolios(company);
    const QString par = u"AAA010101AAA_20001000000100005867"_s;
    edocs::RangoFolios r = Completo(Esquema::kCfdi);
    r.archivo_llave = nombre;
    const Outcome refusado =
        edocs::GuardarRango(s, FamiliaFolios::kFacturas, true, &r, ParDePrueba(par));
    QCOMPARE(refusado.icon, MessageIcon::kWarning);
    QCOMPARE(refusado.field, u"ArchivoLlave"_s);
    QVERIFY2(refusado.message.startsWith(u"El nombre del archivo llave no es válido: "_s + nombre),
             qPrintable(refusado.message));
    QCOMPARE(Valor(s, u"select count(*) from \"folios facturas\""_s).toInt(), 0);

    // A name stored by an older program.
    r = Completo(Esquema::kCfdi);
    r.numero = Alta(s, FamiliaFolios::kFacturas, r, ParDePrueba(par));
    QVERIFY(r.numero > 0);
    Valor(s, u"update \"folios facturas\" set archivollave = ?"_s, {nombre});
    QDir(s.CarpetaCer).removeRecursively();
    QVERIFY(QDir().mkpath(s.CarpetaCer));
    edocs::RangoFolios leido;
    QByteArray cbb;
    QVERIFY(edocs::LeerRango(s, FamiliaFolios::kFacturas, r.numero, &leido, &cbb));
    QCOMPARE(leido.archivo_llave, nombre);
    const std::vector<Outcome> avisos =
        edocs::RestaurarMaterial(s, FamiliaFolios::kFacturas, &leido);
    QCOMPARE(avisos.size(), size_t(1));
    QCOMPARE(avisos[0].message, refusado.message);
    QVERIFY(QDir(s.CarpetaCer).isEmpty());
    QVERIFY(!QFileInfo(QDir(s.CarpetaCer).absoluteFilePath(nombre)).isFile());
    QVERIFY(!QFile::exists(QDir(s.CarpetaEmpresa).filePath(u"escaped.key"_s)));
  }

  // The default range: only the chosen row keeps the mark, whatever the others' schemes, the
  // other table is left alone, and the session starts its documents there. A number that no
  // row holds changes nothing.
  void Predeterminar() {
    VENTARIX_COMPANY(company);
    Session s = SesionFolios(company);
    {
      Connection c(s.Cadena);
      const std::array<std::pair<int, const char*>, 3> rangos = {
          {{1, "CFDI"}, {2, "NOTA"}, {3, "CBB"}}};
      for (const auto& [numero, esquema] : rangos) {
        QVERIFY(testing::InsertarFila(c, u"folios facturas"_s,
                                      {{u"numero"_s, numero},
                                       {u"esquema"_s, QString::fromLatin1(esquema)},
                                       {u"predeterminar"_s, u"+"_s}}));
      }
      QVERIFY(testing::InsertarFila(c, u"folios notas"_s,
                                    {{u"numero"_s, 1}, {u"predeterminar"_s, u"+"_s}}));
    }
    s.FolioNotas = 1;
    QVERIFY(edocs::Predeterminar(s, FamiliaFolios::kFacturas, 2));
    auto marcas = [&s](const char* tabla) {
      Connection c(s.Cadena);
      QSqlQuery q = c.Exec(u"select numero, predeterminar from "_s +
                           dialect::Name(QLatin1String(tabla)) + u" order by numero"_s);
      QStringList filas;
      while (q.next()) filas << q.value(0).toString() + q.value(1).toString();
      return filas;
    };
    QCOMPARE(marcas("folios facturas"), (QStringList{u"1"_s, u"2+"_s, u"3"_s}));
    QCOMPARE(marcas("folios notas"), QStringList{u"1+"_s});
    QCOMPARE(s.FolioFacturas, 2);
    QVERIFY(!edocs::Predeterminar(s, FamiliaFolios::kFacturas, 44));
    QCOMPARE(marcas("folios facturas"), (QStringList{u"1"_s, u"2+"_s, u"3"_s}));
    QCOMPARE(s.FolioFacturas, 2);
    QVERIFY(edocs::Predeterminar(s, FamiliaFolios::kNotas, 1));
    QCOMPARE(s.FolioNotas, 1);
  }
};

QTEST_GUILESS_MAIN(TestFolios)
#include "tst_folios.moc"
