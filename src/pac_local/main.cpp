// ventarix-pac: a stand-in of the PAC's stamping service (SOAP 1.1 on 127.0.0.1), for the tests,
// the demo and the bench, where no machine reaches the provider.
//   ventarix-pac --puerto N --datos FILE.sqlite [--certificado F.cer --llave F.key
//                --contrasena P] [--esquemas DIR] [--usuario U --password P]
// Port 0 takes a free one. Once listening it prints its address on one line.
#include <cstdio>

#include <httplib.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>

#include "core/datos_instalacion.h"
#include "pac_local/servicio.h"

namespace {

using ventarix::pac::Configuracion;

// The password of the shipped data/pac-local key, as its README gives it.
constexpr char kContrasenaPropia[] = "pacprueba2026";
constexpr char kRuta[] = "/ws/services/Timbrado.TimbradoHttpsSoap11Endpoint/";
// Every address clients are seen to post to: the SOAP 1.1 ports and the bare service.
constexpr char kRutas[] = R"(/ws/services/Timbrado(\.TimbradoHttps?Soap11Endpoint)?/?)";

QString Opcion(const QCommandLineParser& p, const char* nombre, const QString& omision = {}) {
  const QString valor = p.value(QLatin1String(nombre));
  return p.isSet(QLatin1String(nombre)) ? valor : omision;
}

Configuracion LeerConfiguracion(const QCommandLineParser& p) {
  const QString propios = ventarix::instalacion::CarpetaDatos() + QStringLiteral("/pac-local/");
  Configuracion c;
  c.datos = Opcion(p, "datos");
  c.certificado = Opcion(p, "certificado", propios + QStringLiteral("pac-local.cer"));
  c.llave = Opcion(p, "llave", propios + QStringLiteral("pac-local.key"));
  c.contrasena =
      Opcion(p, "contrasena",
             p.isSet(QStringLiteral("llave")) ? QString() : QString::fromLatin1(kContrasenaPropia));
  c.esquemas =
      Opcion(p, "esquemas", ventarix::instalacion::CarpetaSat(QStringLiteral("EsquemasCFDi")));
  if (p.isSet(QStringLiteral("usuario")))
    c.cuentas.emplace_back(Opcion(p, "usuario"), Opcion(p, "password"));
  return c;
}

int Fallar(const QString& texto) {
  std::fprintf(stderr, "ventarix-pac: %s\n", texto.toLocal8Bit().constData());
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication app(argc, argv);
  QCommandLineParser parser;
  parser.setApplicationDescription(QStringLiteral("PAC local de pruebas (servicio de timbrado)"));
  parser.addHelpOption();
  for (const char* nombre :
       {"puerto", "datos", "certificado", "llave", "contrasena", "esquemas", "usuario", "password"})
    parser.addOption({QLatin1String(nombre), QString(), QStringLiteral("valor")});
  parser.process(app);
  bool numero = false;
  const int puerto = parser.value(QStringLiteral("puerto")).toInt(&numero);
  if (!numero || puerto < 0 || parser.value(QStringLiteral("datos")).isEmpty())
    return Fallar(QStringLiteral("se requieren --puerto N y --datos ARCHIVO.sqlite"));

  ventarix::pac::Servicio servicio(LeerConfiguracion(parser));
  if (!servicio.error().isEmpty()) return Fallar(servicio.error());

  httplib::Server servidor;
  servidor.set_payload_max_length(8 * 1024 * 1024);  // the provider takes up to 5 MB
  servidor.Post(kRutas, [&servicio](const httplib::Request& pedido, httplib::Response& respuesta) {
    const auto [status, cuerpo] =
        servicio.Atender(QByteArray::fromRawData(pedido.body.data(), pedido.body.size()));
    respuesta.status = status;
    respuesta.set_content(cuerpo.constData(), static_cast<size_t>(cuerpo.size()),
                          "text/xml; charset=UTF-8");
  });
  const int abierto = puerto == 0 ? servidor.bind_to_any_port("127.0.0.1")
                                  : (servidor.bind_to_port("127.0.0.1", puerto) ? puerto : -1);
  if (abierto <= 0)
    return Fallar(QStringLiteral("no se pudo escuchar en 127.0.0.1:%1").arg(puerto));
  std::printf("http://127.0.0.1:%d%s\n", abierto, kRuta);
  std::fflush(stdout);
  return servidor.listen_after_bind() ? 0 : 1;
}
