#pragma once

// The rows the partner tests stand on: two agents, payment methods, a bank, three brands and
// their products, and the fields of a client and a supplier that pass every check.
#include <QString>
#include <QTest>

#include "catalogs/socios.h"
#include "core/database.h"
#include "core/session.h"
#include "support/escribir.h"

namespace ventarix::testing {

using namespace Qt::StringLiterals;

inline bool PrepararSocios(const QString& cadena) {
  Connection c(cadena);
  const QStringList sentencias = {
      u"insert into agentes (numero, nombre, rfc, tienda, status) values "
      "(1, 'MOSTRADOR', '', 1, 'ALTA'), (2, 'JUAN MÉNDEZ', 'MERJ800512K31', 1, 'ALTA')"_s,
      u"insert into metodos (numero, nombre) values (1, 'EFECTIVO'), (2, 'CHEQUE'), "
      "(3, 'TRANSFERENCIA')"_s,
      u"insert into bancos (numero, nombre, cuenta, status) values "
      "(1, 'BANORTE', '100-002-000001', 'ALTA')"_s,
      u"insert into tipos (nombre) values ('MAYOREO'), ('CONTRATISTA')"_s,
      u"insert into marcas (numero, nombre, utilidad1, utilidad2, utilidad3, utilidad4, "
      "utilidad5, status) values (1, 'TRUPER', 40, 35, 30, 25, 20, 'ALTA'), "
      "(2, 'URREA', 45, 40, 35, 30, 25, 'ALTA'), (3, 'PRETUL', 50, 45, 40, 35, 30, 'ALTA')"_s,
      u"insert into productos (codigo, codigo1, producto, marca, linea, venta, status) values "
      "('MAR-16', '7501206610', 'MARTILLO 16 OZ', 1, 1, 120, 'ALTA'), "
      "('DES-6', '', 'DESARMADOR PLANO 6 PULG', 2, 1, 85, 'ALTA'), "
      "('CIN-5', '', 'CINTA METRICA 5 M', 1, 1, 99, 'ALTA')"_s,
  };
  for (const QString& sentencia : sentencias) {
    QString error;
    if (!testing::Escribir(c, sentencia, {}, &error)) {
      qWarning("%s", qPrintable(error));
      return false;
    }
  }
  return true;
}

// The company of the current engine, prepared with the partner rows, and a session with every
// right on them.
#define VENTARIX_SOCIOS(company, session)                       \
  VENTARIX_COMPANY(company);                                    \
  QVERIFY(ventarix::testing::PrepararSocios(company.cadena())); \
  ventarix::Session session = company.MakeSession();            \
  ventarix::testing::DerechosDeSocios(session, QStringLiteral("SSS"))

// Every rights text of the partner catalogues.
inline void DerechosDeSocios(Session& session, const QString& derechos) {
  for (const char* columna : {"Clientes", "Proveedores", "Agentes", "Bancos"}) {
    session.usuario.Set(QString::fromLatin1(columna), derechos);
  }
}

// A client as typed: RFC with hyphens, amounts with commas, a mixed-case e-mail.
inline socios::Registro ClienteValido() {
  socios::Registro r;
  const QList<std::pair<const char*, QString>> campos = {
      {"Nombre", u"CONSTRUCTORA DEL BAJÍO SA DE CV"_s},
      {"Rfc", u"CDB-850923-QA7"_s},
      {"Calle", u"AV. JUÁREZ"_s},
      {"NoExterior", u"125"_s},
      {"Colonia", u"CENTRO"_s},
      {"Localidad", u"SANTIAGO DE QUERÉTARO"_s},
      {"Municipio", u"QUERÉTARO"_s},
      {"Estado", u"QUERÉTARO"_s},
      {"Pais", u"MÉXICO"_s},
      {"CodigoPostal", u"76000"_s},
      {"Plazo", u"30"_s},
      {"Credito", u"50,000.00"_s},
      {"Agente", u"2"_s},
      {"Metodo", u"3"_s},
      {"NumCtaPago", u"0012-3456-7890"_s},
      {"Banco", u"1"_s},
      {"Email1", u"Compras@Bajio.example"_s},
      {"Tipo", u"MAYOREO"_s},
      {"Cuenta", u"100-003-000001"_s},
      {"Juridico", u"N"_s},
  };
  for (const auto& [columna, valor] : campos) r.valores.Set(QString::fromLatin1(columna), valor);
  return r;
}

inline socios::Registro ProveedorValido() {
  socios::Registro r = ClienteValido();
  r.valores.Set(u"Nombre"_s, u"TORNILLOS Y FIJACIONES DE MÉXICO SA DE CV"_s);
  r.valores.Set(u"Rfc"_s, u"TFM020514AB1"_s);
  return r;
}

}  // namespace ventarix::testing
