// Look-ups of the partners and the small catalogues: clients, agents, suppliers, brands, lines,
// banks, payment methods, obsolete-stock categories and users.
#include "core/ayuda_peticiones.h"

namespace ventarix::ayuda::detalle {

namespace {

// Clients and suppliers share their list; only the words of the prompts differ.
PeticionAyuda Socios(const QString& titulo, const QString& tabla, const QString& quien) {
  PeticionAyuda p =
      Nueva(titulo, QStringLiteral("select numero, nombre, rfc, tipo, saldo from ") + tabla,
            QStringLiteral(" order by numero"));
  p.columnas = {Cifra(QStringLiteral("Número <F2>"), 900),
                Texto(QStringLiteral("Nombre <F4>"), 4600), Texto(QStringLiteral("Rfc <F3>"), 2000),
                Texto(QStringLiteral("Tipo"), 1500),
                Cifra(QStringLiteral("SALDO $"), 1600, QString::fromLatin1(kDinero))};
  p.busquedas = {
      {2, QStringLiteral("numero"), QStringLiteral("Numero de %1 a buscar").arg(quien), true},
      {3, QStringLiteral("rfc"), QStringLiteral("Rfc del %1 a buscar").arg(quien), false},
      {4, QStringLiteral("nombre"), QStringLiteral("Nombre del %1 a buscar").arg(quien), false},
  };
  return p;
}

PeticionAyuda Agentes() {
  PeticionAyuda p =
      Nueva(QStringLiteral("Agentes"), QStringLiteral("select numero, nombre, rfc from agentes"),
            QStringLiteral(" order by numero"));
  p.columnas = {Cifra(QStringLiteral("Número <F2>"), 900),
                Texto(QStringLiteral("Nombre <F4>"), 4600), Texto(QStringLiteral("R.F.C."), 2000)};
  p.busquedas = {
      {2, QStringLiteral("numero"), QStringLiteral("Numero de agente a buscar"), true},
      {4, QStringLiteral("nombre"), QStringLiteral("Nombre del agente a buscar"), false},
  };
  return p;
}

// The point of sale offers only the agents of the user's store.
PeticionAyuda AgentesTpv(const Session& session) {
  PeticionAyuda p =
      Nueva(QStringLiteral("Agentes"), QStringLiteral("select numero, nombre from agentes"),
            QStringLiteral(" order by numero"));
  p.fija = QStringLiteral("tienda = ?");
  p.valores_fijos = {session.Tienda};
  p.columnas = {Cifra(QStringLiteral("Número"), 900), Texto(QStringLiteral("Nombre"), 4600)};
  return p;
}

PeticionAyuda Marcas() {
  PeticionAyuda p = Nueva(QStringLiteral("Marcas"),
                          QStringLiteral("select numero, nombre, utilidad1, utilidad2, utilidad3, "
                                         "utilidad4, utilidad5 from marcas"),
                          QStringLiteral(" order by numero"));
  p.columnas = {Cifra(QStringLiteral("Número"), 900), Texto(QStringLiteral("Marca"), 3500)};
  for (int i = 1; i <= 5; ++i) {
    p.columnas.push_back(
        Cifra(QStringLiteral("Util %1 %").arg(i), 1000, QString::fromLatin1(kDinero)));
  }
  return p;
}

// A list of number and name.
PeticionAyuda NumeroYNombre(const QString& titulo, const QString& tabla, const QString& nombre) {
  PeticionAyuda p = Nueva(titulo, QStringLiteral("select numero, nombre from ") + tabla,
                          QStringLiteral(" order by numero"));
  p.columnas = {Cifra(QStringLiteral("Número"), 900), Texto(nombre, 4600)};
  return p;
}

PeticionAyuda Categorias() {
  PeticionAyuda p =
      Nueva(QStringLiteral("Obsoletos"), QStringLiteral("select categoria, mes from obsoletos"),
            QStringLiteral(" order by categoria"));
  p.columnas = {Texto(QStringLiteral("Categoría"), 3000), Cifra(QStringLiteral("Mes"), 900)};
  return p;
}

PeticionAyuda Usuarios() {
  PeticionAyuda p =
      Nueva(QStringLiteral("Usuarios"), QStringLiteral("select usuario from usuarios"),
            QStringLiteral(" order by usuario"));
  p.columnas = {Texto(QStringLiteral("Usuario"), 3000)};
  return p;
}

}  // namespace

std::optional<PeticionAyuda> PeticionCatalogo(const Session& session, const QString& palabra,
                                              const ParametrosAyuda&) {
  if (palabra == u"CLIENTES") {
    return Socios(QStringLiteral("Clientes"), QStringLiteral("clientes"),
                  QStringLiteral("cliente"));
  }
  if (palabra == u"PROVEEDORES") {
    return Socios(QStringLiteral("Proveedores"), QStringLiteral("proveedores"),
                  QStringLiteral("proveedor"));
  }
  if (palabra == u"AGENTES") return Agentes();
  if (palabra == u"AGENTES TPV") return AgentesTpv(session);
  if (palabra == u"MARCAS") return Marcas();
  if (palabra == u"LINEAS") {
    return NumeroYNombre(QStringLiteral("Lineas"), QStringLiteral("lineas"),
                         QStringLiteral("Línea"));
  }
  if (palabra == u"BANCOS") {
    return NumeroYNombre(QStringLiteral("Bancos"), QStringLiteral("bancos"),
                         QStringLiteral("Banco"));
  }
  if (palabra == u"METODOS") {
    return NumeroYNombre(QStringLiteral("Métodos de Pago"), QStringLiteral("metodos"),
                         QStringLiteral("Método de Pago"));
  }
  if (palabra == u"CATEGORIAS") return Categorias();
  if (palabra == u"USUARIOS") return Usuarios();
  return std::nullopt;
}

}  // namespace ventarix::ayuda::detalle
