#pragma once

#include <atomic>
#include <thread>
#include <vector>

#include <QByteArray>
#include <QString>

namespace ventarix::testing {

// A faulty PAC on 127.0.0.1, served from a thread of its own, for the failures a real provider's
// network gives: nobody listening, a peer that accepts and never answers, an answer that is
// not the service's, and a reply lost after the provider stamped (the request forwarded to the
// stand-in, its answer read, then the connection dropped without a word). Stops when it goes.
class PacIntermedio {
 public:
  enum class Modo { kNoEscucha, kSilencio, kTexto, kPerderRespuesta };

  // `dato` is the body answered with 200 (kTexto) or the stand-in's address (kPerderRespuesta).
  explicit PacIntermedio(Modo modo, const QByteArray& dato = {});
  ~PacIntermedio();
  PacIntermedio(const PacIntermedio&) = delete;
  PacIntermedio& operator=(const PacIntermedio&) = delete;

  // The address to give a company as its PAC's.
  QString url() const { return url_; }
  // Requests read whole so far.
  int Pedidos() const { return pedidos_; }

 private:
  void Servir();
  void Atender(int cliente);

  Modo modo_;
  QByteArray dato_;
  QString url_;
  int escucha_ = -1;
  std::atomic<bool> alto_{false};
  std::atomic<int> pedidos_{0};
  std::vector<int> abiertas_;  // connections kept open without an answer, the thread's own
  std::thread hilo_;
};

}  // namespace ventarix::testing
