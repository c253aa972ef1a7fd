#include "support/pac_intermedio.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QUrl>

namespace ventarix::testing {
namespace {

constexpr char kRuta[] = "/ws/services/Timbrado.TimbradoHttpsSoap11Endpoint/";

// A socket on 127.0.0.1 at a free port; -1 when none could be had.
int Ligar(int* puerto) {
  const int s = ::socket(AF_INET, SOCK_STREAM, 0);
  if (s < 0) return -1;
  sockaddr_in direccion{};
  direccion.sin_family = AF_INET;
  direccion.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t largo = sizeof direccion;
  if (::bind(s, reinterpret_cast<sockaddr*>(&direccion), sizeof direccion) != 0 ||
      ::getsockname(s, reinterpret_cast<sockaddr*>(&direccion), &largo) != 0) {
    ::close(s);
    return -1;
  }
  *puerto = ntohs(direccion.sin_port);
  return s;
}

void EnviarTodo(int s, const QByteArray& datos) {
  qsizetype enviado = 0;
  while (enviado < datos.size()) {
    const ssize_t n = ::send(s, datos.constData() + enviado,
                             static_cast<size_t>(datos.size() - enviado), MSG_NOSIGNAL);
    if (n <= 0) return;
    enviado += n;
  }
}

// One HTTP request read whole (headers and Content-Length bytes), waiting 5 s at most for
// each piece; empty when the peer went away first.
QByteArray LeerPedido(int s) {
  timeval espera{5, 0};
  ::setsockopt(s, SOL_SOCKET, SO_RCVTIMEO, &espera, sizeof espera);
  QByteArray pedido;
  char bloque[8192];
  while (true) {
    const qsizetype fin = pedido.indexOf("\r\n\r\n");
    if (fin >= 0) {
      const qsizetype largo = pedido.toLower().indexOf("content-length:");
      const qsizetype cuerpo =
          largo < 0 ? 0 : pedido.mid(largo + 15, 20).split('\r').first().trimmed().toLongLong();
      if (pedido.size() >= fin + 4 + cuerpo) return pedido;
    }
    const ssize_t n = ::recv(s, bloque, sizeof bloque, 0);
    if (n <= 0) return {};
    pedido.append(bloque, n);
  }
}

// The request sent on to the stand-in on a connection of its own, and its answer read to the
// end: the stand-in has done its work when this returns.
void Reenviar(const QUrl& destino, const QByteArray& pedido) {
  const int s = ::socket(AF_INET, SOCK_STREAM, 0);
  if (s < 0) return;
  sockaddr_in direccion{};
  direccion.sin_family = AF_INET;
  direccion.sin_port = htons(static_cast<uint16_t>(destino.port()));
  direccion.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  if (::connect(s, reinterpret_cast<sockaddr*>(&direccion), sizeof direccion) == 0) {
    // The stand-in closes after its answer: no keep-alive to wait out.
    const qsizetype fin = pedido.indexOf("\r\n\r\n");
    QByteArray cabeceras;
    for (const QByteArray& linea : pedido.left(fin).split('\n')) {
      if (!linea.toLower().startsWith("connection:")) cabeceras += linea.trimmed() + "\r\n";
    }
    EnviarTodo(s, cabeceras + "Connection: close\r\n\r\n" + pedido.mid(fin + 4));
    timeval espera{30, 0};
    ::setsockopt(s, SOL_SOCKET, SO_RCVTIMEO, &espera, sizeof espera);
    char bloque[8192];
    while (::recv(s, bloque, sizeof bloque, 0) > 0) {
    }
  }
  ::close(s);
}

}  // namespace

PacIntermedio::PacIntermedio(Modo modo, const QByteArray& dato) : modo_(modo), dato_(dato) {
  int puerto = 0;
  escucha_ = Ligar(&puerto);
  const QString ruta = modo == Modo::kPerderRespuesta ? QUrl(QString::fromUtf8(dato)).path()
                                                      : QString::fromLatin1(kRuta);
  url_ = QStringLiteral("http://127.0.0.1:%1").arg(puerto) + ruta;
  // A port bound and closed again: whoever calls it finds nobody.
  if (modo == Modo::kNoEscucha || escucha_ < 0 || ::listen(escucha_, 8) != 0) {
    if (escucha_ >= 0) ::close(escucha_);
    escucha_ = -1;
    return;
  }
  hilo_ = std::thread([this] { Servir(); });
}

PacIntermedio::~PacIntermedio() {
  alto_ = true;
  if (hilo_.joinable()) hilo_.join();
  if (escucha_ >= 0) ::close(escucha_);
  for (const int s : abiertas_) ::close(s);
}

void PacIntermedio::Servir() {
  while (!alto_) {
    pollfd espera{escucha_, POLLIN, 0};
    if (::poll(&espera, 1, 100) <= 0) continue;
    const int cliente = ::accept(escucha_, nullptr, nullptr);
    if (cliente >= 0) Atender(cliente);
  }
}

void PacIntermedio::Atender(int cliente) {
  const QByteArray pedido = LeerPedido(cliente);
  if (!pedido.isEmpty()) ++pedidos_;
  switch (modo_) {
    case Modo::kSilencio:
      abiertas_.push_back(cliente);
      return;
    case Modo::kTexto:
      EnviarTodo(cliente,
                 "HTTP/1.1 200 OK\r\nContent-Type: text/xml; charset=UTF-8\r\n"
                 "Content-Length: " +
                     QByteArray::number(dato_.size()) + "\r\nConnection: close\r\n\r\n" + dato_);
      break;
    case Modo::kPerderRespuesta:
      if (!pedido.isEmpty()) Reenviar(QUrl(QString::fromUtf8(dato_)), pedido);
      break;
    case Modo::kNoEscucha:
      break;
  }
  ::shutdown(cliente, SHUT_RDWR);
  ::close(cliente);
}

}  // namespace ventarix::testing
