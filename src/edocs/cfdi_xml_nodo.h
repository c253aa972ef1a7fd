#pragma once

// The small element tree the document XML is assembled in before it is written: elements keep
// their attributes in the order they were set, and the layout text nodes (CR LF and tabs) are
// ordinary children, as they are in the saved file.
#include <optional>
#include <utility>
#include <vector>

#include <QByteArray>
#include <QList>
#include <QString>

namespace ventarix::edocs::xml {

struct Nodo {
  QString nombre;  // qualified name ("cfdi:Emisor"); empty for a text node
  QString texto;   // the text of a text node
  QList<std::pair<QString, QString>> atributos;
  std::vector<Nodo> hijos;

  explicit Nodo(QString nombre_elemento = {}) : nombre(std::move(nombre_elemento)) {}
  static Nodo Texto(QString texto);

  // The attribute always, or only when its value is not empty.
  void Poner(const QString& atributo, const QString& valor);
  void PonerSi(const QString& atributo, const QString& valor);
  Nodo& Agregar(Nodo hijo);
  QString Atributo(const QString& atributo) const;
};

// Where the layout puts its CR LF + tabs inside an element: before the first child (-1: none),
// after every child but the last, and after the last one. Each number is a count of tabs.
struct Salto {
  int apertura = -1;
  int entre = 0;
  int ultimo = 0;
};

// Interleaves the element's children with the layout text nodes of `salto`.
void Espaciar(Nodo& elemento, Salto salto);

// A text as an attribute value may hold it: characters XML 1.0 cannot carry (control
// characters other than tab, LF and CR, unpaired surrogates, U+FFFE/U+FFFF) are dropped.
QString TextoXml(const QString& texto);

// Reads a well-formed XML fragment (one or more elements, prefixes need not be declared) as
// nodes; nothing when it is not well formed.
std::optional<std::vector<Nodo>> LeerFragmento(const QByteArray& fragmento);

// The declaration `<?xml version="1.0" encoding="UTF-8"?>`, CR LF, the root element and a
// closing CR LF, in UTF-8.
QByteArray Serializar(const Nodo& raiz);

}  // namespace ventarix::edocs::xml
