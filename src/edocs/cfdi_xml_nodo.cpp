#include "edocs/cfdi_xml_nodo.h"

#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace ventarix::edocs::xml {

Nodo Nodo::Texto(QString texto) {
  Nodo nodo;
  nodo.texto = std::move(texto);
  return nodo;
}

void Nodo::Poner(const QString& atributo, const QString& valor) {
  atributos.append({atributo, TextoXml(valor)});
}

void Nodo::PonerSi(const QString& atributo, const QString& valor) {
  if (!valor.isEmpty()) Poner(atributo, valor);
}

Nodo& Nodo::Agregar(Nodo hijo) {
  hijos.push_back(std::move(hijo));
  return hijos.back();
}

QString Nodo::Atributo(const QString& atributo) const {
  for (const auto& [nombre_atributo, valor] : atributos) {
    if (nombre_atributo == atributo) return valor;
  }
  return {};
}

void Espaciar(Nodo& elemento, Salto salto) {
  const auto salto_de = [](int tabs) {
    return Nodo::Texto(QStringLiteral("\r\n") + QString(tabs, QLatin1Char('\t')));
  };
  std::vector<Nodo> hijos;
  if (salto.apertura >= 0) hijos.push_back(salto_de(salto.apertura));
  const size_t total = elemento.hijos.size();
  for (size_t i = 0; i < total; ++i) {
    hijos.push_back(std::move(elemento.hijos[i]));
    hijos.push_back(salto_de(i + 1 == total ? salto.ultimo : salto.entre));
  }
  elemento.hijos = std::move(hijos);
}

QString TextoXml(const QString& texto) {
  QString limpio;
  limpio.reserve(texto.size());
  for (qsizetype i = 0; i < texto.size(); ++i) {
    const QChar c = texto.at(i);
    if (c.isHighSurrogate() && i + 1 < texto.size() && texto.at(i + 1).isLowSurrogate()) {
      limpio.append(c).append(texto.at(++i));
      continue;
    }
    const char16_t u = c.unicode();
    const bool control = u < 0x20 && u != u'\t' && u != u'\n' && u != u'\r';
    if (control || c.isSurrogate() || u == 0xFFFE || u == 0xFFFF) continue;
    limpio.append(c);
  }
  return limpio;
}

namespace {

// Reads the children of the element the reader stands on, up to its end tag.
void LeerHijos(QXmlStreamReader& lector, Nodo& padre) {
  while (lector.readNext() != QXmlStreamReader::Invalid) {
    if (lector.isEndElement()) return;
    if (lector.isCharacters()) {
      padre.Agregar(Nodo::Texto(lector.text().toString()));
    } else if (lector.isStartElement()) {
      Nodo& hijo = padre.Agregar(Nodo(lector.qualifiedName().toString()));
      for (const QXmlStreamAttribute& a : lector.attributes()) {
        hijo.Poner(a.qualifiedName().toString(), a.value().toString());
      }
      LeerHijos(lector, hijo);
    }
  }
}

void Escribir(QXmlStreamWriter& escritor, const Nodo& nodo) {
  if (nodo.nombre.isEmpty()) {
    escritor.writeCharacters(nodo.texto);
    return;
  }
  if (nodo.hijos.empty()) {
    escritor.writeEmptyElement(nodo.nombre);
  } else {
    escritor.writeStartElement(nodo.nombre);
  }
  for (const auto& [atributo, valor] : nodo.atributos) escritor.writeAttribute(atributo, valor);
  for (const Nodo& hijo : nodo.hijos) Escribir(escritor, hijo);
  if (!nodo.hijos.empty()) escritor.writeEndElement();
}

}  // namespace

std::optional<std::vector<Nodo>> LeerFragmento(const QByteArray& fragmento) {
  // The fragment may hold several elements: a wrapper makes it one document.
  QXmlStreamReader lector(QByteArrayLiteral("<f>") + fragmento + QByteArrayLiteral("</f>"));
  lector.setNamespaceProcessing(false);
  Nodo envoltura;
  if (lector.readNextStartElement()) LeerHijos(lector, envoltura);
  while (!lector.atEnd()) lector.readNext();
  if (lector.hasError()) return std::nullopt;
  return std::move(envoltura.hijos);
}

QByteArray Serializar(const Nodo& raiz) {
  QByteArray elemento;
  {
    QXmlStreamWriter escritor(&elemento);
    Escribir(escritor, raiz);
  }
  return QByteArrayLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n") + elemento +
         QByteArrayLiteral("\r\n");
}

}  // namespace ventarix::edocs::xml
