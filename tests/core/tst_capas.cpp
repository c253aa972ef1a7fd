// The layers, checked on the sources themselves: domain code never includes widgets, painting
// or screens; a subsystem includes only itself and what stands below it.
#include <algorithm>

#include <QDirIterator>
#include <QFile>
#include <QHash>
#include <QLibraryInfo>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// Each folder's tier: core < documents < the business subsystems < demo and the stand-in PAC
// < app.
int Nivel(const QString& subsistema) {
  static const QHash<QString, int> niveles{
      {u"core"_s, 0},    {u"documents"_s, 1},   {u"catalogs"_s, 2},  {u"edocs"_s, 2},
      {u"sales"_s, 2},   {u"purchasing"_s, 2},  {u"inventory"_s, 2}, {u"pos"_s, 2},
      {u"reports"_s, 2}, {u"maintenance"_s, 2}, {u"demo"_s, 3},      {u"pac_local"_s, 3},
      {u"app"_s, 4}};
  return niveles.value(subsistema, -1);
}

// Siblings that include each other, each with its reason.
struct Permitido {
  QString archivo;
  QString cabecera;
};
const Permitido kPermitidos[] = {
    // A sale row is priced by the product catalogue's price rules.
    {u"sales/familias_ventas.cpp"_s, u"catalogs/mFunciones_precios.h"_s},
    {u"sales/aplicar_ventas.cpp"_s, u"catalogs/mFunciones_precios.h"_s},
    {u"sales/aplicar_ventas.cpp"_s, u"catalogs/price_formulas.h"_s},
    // A purchase moves the product's cost and prices by the company's rules.
    {u"purchasing/familia_compras.cpp"_s, u"catalogs/mFunciones_precios.h"_s},
    // An invoice or a credit note is sealed by its range's driver as the last check of its save.
    {u"sales/sellar_documento.cpp"_s, u"edocs/mDigital.h"_s},
    {u"sales/sellar_documento.cpp"_s, u"edocs/cfdi_xml.h"_s},
    // The invoice and credit-note browsers stamp their rows through the PAC.
    {u"sales/ui/acciones_timbrado.cpp"_s, u"edocs/mTimbrar.h"_s},
};

bool EsPermitido(const QString& archivo, const QString& cabecera) {
  return std::any_of(std::begin(kPermitidos), std::end(kPermitidos), [&](const Permitido& p) {
    return p.archivo == archivo && p.cabecera == cabecera;
  });
}

// A header of Qt's painting or widget modules, by module path or by class name.
bool EsGrafico(const QString& cabecera) {
  for (const QString& modulo : {u"QtGui"_s, u"QtWidgets"_s}) {
    if (cabecera == modulo || cabecera.startsWith(modulo + u'/')) return true;
    if (QFile::exists(QLibraryInfo::path(QLibraryInfo::HeadersPath) + u'/' + modulo + u'/' +
                      cabecera)) {
      return true;
    }
  }
  return false;
}

// What is wrong with `archivo` (a path under src/) including `inclusion` (as written, with its
// quotes or angle brackets); empty when nothing is.
QString Falta(const QString& archivo, const QString& inclusion) {
  const QString propio = archivo.section(u'/', 0, 0);
  const int nivel = Nivel(propio);
  if (nivel < 0) return u"its folder has no place in the layers"_s;
  const bool dominio = propio != u"app"_s && !archivo.contains(u"/ui/"_s);
  const QString cabecera = inclusion.mid(1, inclusion.size() - 2);
  if (inclusion.startsWith(u'<')) {
    return dominio && EsGrafico(cabecera) ? u"domain code includes Qt painting or widgets"_s
                                          : QString();
  }
  const QString otro = cabecera.section(u'/', 0, 0);
  const int suyo = Nivel(otro);
  if (!cabecera.contains(u'/') || suyo < 0) return {};
  if (dominio && cabecera.contains(u"/ui/"_s)) return u"domain code includes a screen"_s;
  if (suyo > nivel) return u"includes a subsystem that stands above it"_s;
  if (suyo == nivel && otro != propio && !EsPermitido(archivo, cabecera)) {
    return u"includes a sibling subsystem"_s;
  }
  return {};
}

}  // namespace

class TestCapas : public QObject {
  Q_OBJECT

 private slots:
  void reglas_data() {
    QTest::addColumn<QString>("archivo");
    QTest::addColumn<QString>("inclusion");
    QTest::addColumn<bool>("correcto");
    const auto fila = [](const char* nombre, const char* archivo, const char* inclusion,
                         bool correcto) {
      QTest::newRow(nombre) << QString::fromUtf8(archivo) << QString::fromUtf8(inclusion)
                            << correcto;
    };
    fila("down a tier", "catalogs/socios.cpp", "\"documents/captura.h\"", true);
    fila("up a tier", "documents/captura.cpp", "\"catalogs/socios.h\"", false);
    fila("sibling", "sales/remisiones.cpp", "\"edocs/folios.h\"", false);
    fila("own subsystem", "edocs/sellos.cpp", "\"edocs/folios.h\"", true);
    fila("demo over siblings", "demo/demo_folios.cpp", "\"edocs/certificado.h\"", true);
    fila("subsystem over demo", "edocs/folios.cpp", "\"demo/demo_company.h\"", false);
    fila("app over all", "app/formularios.cpp", "\"catalogs/ui/socios_registro.h\"", true);
    fila("core over app", "core/ui/navegador.cpp", "\"app/formularios.h\"", false);
    fila("domain over a screen", "catalogs/socios.cpp", "\"catalogs/ui/forma_socio.h\"", false);
    fila("screen over a screen", "catalogs/ui/frm_lineas.cpp", "\"core/ui/campo_captura.h\"", true);
    fila("domain over a widget", "catalogs/socios.cpp", "<QWidget>", false);
    fila("domain over a colour", "sales/remisiones.cpp", "<QColor>", false);
    fila("domain over a module", "edocs/qr.cpp", "<QtGui/QImage>", false);
    fila("domain over core Qt", "edocs/qr.cpp", "<QByteArray>", true);
    fila("domain over Qt SQL", "core/database.cpp", "<QSqlQuery>", true);
    fila("screen over a widget", "catalogs/ui/frm_lineas.cpp", "<QDialog>", true);
    fila("unknown folder", "compras/ordenes.cpp", "\"core/session.h\"", false);
  }
  void reglas() {
    QFETCH(QString, archivo);
    QFETCH(QString, inclusion);
    QFETCH(bool, correcto);
    QCOMPARE(Falta(archivo, inclusion).isEmpty(), correcto);
  }

  // Every include of every file under src/.
  void fuentes() {
    const QString raiz = QStringLiteral(VENTARIX_SOURCE_DIR) + u"/src/"_s;
    const QRegularExpression inclusion(u"^\\s*#\\s*include\\s*([<\"][^>\"]+[>\"])"_s);
    QStringList faltas;
    int archivos = 0;
    QDirIterator it(raiz, {u"*.h"_s, u"*.cpp"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
      const QString ruta = it.next();
      const QString archivo = ruta.mid(raiz.size());
      QFile fuente(ruta);
      QVERIFY2(fuente.open(QIODevice::ReadOnly | QIODevice::Text), qPrintable(ruta));
      ++archivos;
      while (!fuente.atEnd()) {
        const QRegularExpressionMatch m = inclusion.match(QString::fromUtf8(fuente.readLine()));
        if (!m.hasMatch()) continue;
        if (const QString falta = Falta(archivo, m.captured(1)); !falta.isEmpty()) {
          faltas << archivo + u": "_s + m.captured(1) + u": "_s + falta;
        }
      }
    }
    QVERIFY(archivos > 100);
    QVERIFY2(faltas.isEmpty(), qPrintable(faltas.join(u'\n')));
  }
};

QTEST_GUILESS_MAIN(TestCapas)
#include "tst_capas.moc"
