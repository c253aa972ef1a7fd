// The four partner catalogues as their screens differ: fields in the order of capture and of
// saving, the checks that apply, the table and the rights column.
#include "catalogs/socios.h"

namespace ventarix::socios {

namespace {

using enum Tipo;

// The fiscal address that goes into the electronic documents, after the name and RFC.
std::vector<Campo> DatosFiscales() {
  return {{"Nombre", "Nombre"},
          {"Rfc", "R.F.C.", kRfc},
          {"Calle", "Calle"},
          {"NoExterior", "No. Exterior"},
          {"NoInterior", "No. Interior"},
          {"Colonia", "Colonia"},
          {"Localidad", "Localidad"},
          {"Referencia", "Referencia"},
          {"Municipio", "Municipio"},
          {"Estado", "Estado"},
          {"Pais", "País"},
          {"CodigoPostal", "Código Postal"}};
}

std::vector<Campo> Contacto() {
  return {{"Contacto", "Contacto"},        {"Telefonos", "Teléfonos"},
          {"Celular", "Celular"},          {"Nextel", "Nextel"},
          {"Email1", "E-mail 1", kCorreo}, {"Email2", "E-mail 2", kCorreo},
          {"Email3", "E-mail 3", kCorreo}};
}

Familia Clientes() {
  return {Socio::kClientes,
          "clientes",
          "Clientes",
          "Clientes",
          "cliente",
          "FrmClientesA",
          "FrmClientesC",
          "100-003-",
          true,
          true,
          false,
          {{"Datos fiscales", 0, 1, DatosFiscales()},
           {"Crédito y cobranza",
            1,
            1,
            {{"Plazo", "Plazo (días)", kEntero},
             {"Credito", "Crédito Máximo", kNumero},
             {"Agente", "Agente", kCatalogo, false, Catalogo::kAgentes},
             {"Metodo", "Método de Pago", kCatalogo, false, Catalogo::kMetodos},
             {"NumCtaPago", "Cuenta de Pago"},
             {"Banco", "Banco", kCatalogo, false, Catalogo::kBancos}}},
           {"Contacto", 1, 1, Contacto()},
           {"Otros datos",
            0,
            1,
            {{"Tipo", "Tipo", kTipo},
             {"Cuenta", "Cuenta Contable"},
             {"Anotaciones", "Anotaciones"},
             {"Juridico", "Jurídico", kBandera},
             {"Addenda", "Addenda", kAddenda, true}}}}};
}

Familia Proveedores() {
  return {Socio::kProveedores,
          "proveedores",
          "Proveedores",
          "Proveedores",
          "proveedor",
          "FrmProveedoresA",
          "FrmProveedoresC",
          "200-100-",
          true,
          false,
          false,
          {{"Datos fiscales", 0, 1, DatosFiscales()},
           {"Crédito",
            1,
            1,
            {{"Plazo", "Plazo (días)", kEntero},
             {"Credito", "Crédito Máximo", kNumero},
             {"Cuenta", "Cuenta Contable"},
             {"Anotaciones", "Anotaciones"},
             {"Clave", "Clave", kTexto, true}}},
           {"Contacto", 1, 1, Contacto()},
           {"Otros datos", 0, 1, {{"Tipo", "Tipo", kTipo}}}}};
}

Familia Agentes() {
  return {Socio::kAgentes,
          "agentes",
          "Agentes",
          "Agentes",
          "agente",
          "FrmAgentesA",
          "FrmAgentesC",
          nullptr,
          false,
          false,
          true,
          {{"Datos del agente",
            0,
            1,
            {{"Nombre", "Nombre"},
             {"Direccion", "Dirección"},
             {"Colonia", "Colonia"},
             {"Ciudad", "Ciudad"},
             {"Cp", "C.P."},
             {"Rfc", "R.F.C."},
             {"Contacto", "Contacto"},
             {"Telefonos", "Teléfonos"},
             {"Email", "E-mail", kCorreo}}},
           {"Comisión",
            1,
            1,
            {{"Cuenta", "Cuenta Contable"},
             {"Comision", "Comisión %", kNumero},
             {"Anotaciones", "Anotaciones"},
             {"Tienda", "Tienda", kEntero}}},
           // By the age of the collected invoice: days from, days to, percent.
           {"Comisiones por antigüedad",
            1,
            3,
            {{"Dias1", "Días de", kEntero, true},
             {"Dias2", "a", kEntero, true},
             {"Comision1", "%", kNumero, true},
             {"Dias3", "Días de", kEntero, true},
             {"Dias4", "a", kEntero, true},
             {"Comision2", "%", kNumero, true},
             {"Dias5", "Días de", kEntero, true},
             {"Dias6", "a", kEntero, true},
             {"Comision3", "%", kNumero, true},
             {"Dias7", "Días de", kEntero, true},
             {"Dias8", "a", kEntero, true},
             {"Comision4", "%", kNumero, true}}}}};
}

Familia Bancos() {
  return {Socio::kBancos, "bancos",
          "Bancos",       "Bancos",
          "banco",        "FrmBancosA",
          "FrmBancosC",   "100-002-",
          false,          false,
          true,           {{"Banco", 0, 1, {{"Nombre", "Nombre"}, {"Cuenta", "Cuenta Contable"}}}}};
}

}  // namespace

const Familia& FamiliaDe(Socio socio) {
  static const Familia familias[] = {Clientes(), Proveedores(), Agentes(), Bancos()};
  return familias[static_cast<int>(socio)];
}

std::vector<const Campo*> Campos(const Familia& familia, bool cambio) {
  std::vector<const Campo*> campos;
  for (const Grupo& grupo : familia.grupos) {
    for (const Campo& campo : grupo.campos) {
      if (cambio || !campo.solo_cambio) campos.push_back(&campo);
    }
  }
  return campos;
}

}  // namespace ventarix::socios
