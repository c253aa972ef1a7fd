// mTimbrarFactura and mTimbrarNota: what sets them apart, and their entries.
#include "edocs/mTimbrar_familias.h"

namespace ventarix::edocs {
namespace timbrado {

using namespace Qt::StringLiterals;

const FamiliaTimbrado& Facturas() {
  static const FamiliaTimbrado familia{
      .tabla = u"facturas"_s,
      .llave = u"factura"_s,
      .columna_rango = u"ingreso"_s,
      .folios = FamiliaFolios::kFacturas,
      .derechos = u"Facturas"_s,
      .no_localizado = u"No se localizó este número de factura"_s,
      .sin_esquema = u"Para el timbrado de esta factura se requiere un esquema CFDi"_s,
      .baja = u"Esta factura esta dada de baja"_s,
      .sin_datos = u"No se obtuvieron datos de esta factura"_s,
      .sin_rango = u"Se requiere el registro de una serie de ingreso en: Folios Facturas"_s,
      .carpeta_folios = u"Folios Facturas"_s,
      .escribe_sello = true,
      .impuestos = Impuestos::kCompletos};
  return familia;
}

// A note sealed at capture carries only its Traslados; rebuilt here it carries
// totalImpuestosTrasladados too, and the seal the PAC sees covers it.
const FamiliaTimbrado& Notas() {
  static const FamiliaTimbrado familia{
      .tabla = u"notas cliente"_s,
      .llave = u"nota"_s,
      .columna_rango = u"egreso"_s,
      .folios = FamiliaFolios::kNotas,
      .derechos = u"NotasCliente"_s,
      .no_localizado = u"No se localizó este número de nota"_s,
      .sin_esquema = u"Para el timbrado de esta nota se requiere un esquema CFDi"_s,
      .baja = u"Esta nota esta dada de baja"_s,
      .sin_datos = u"No se obtuvieron datos de esta nota"_s,
      .sin_rango = u"Se requiere el registro de una serie de egreso en: Folios Notas"_s,
      .carpeta_folios = u"Folios Notas"_s,
      .escribe_sello = false,
      .impuestos = Impuestos::kCompletos};
  return familia;
}

}  // namespace timbrado

ResultadoTimbrado TimbrarFactura(const Session& session, const QString& factura) {
  return timbrado::Timbrar(session, timbrado::Facturas(), factura, CuentaPacDeEmpresa(session));
}

ResultadoTimbrado TimbrarNota(const Session& session, const QString& nota) {
  return timbrado::Timbrar(session, timbrado::Notas(), nota, CuentaPacDeEmpresa(session));
}

}  // namespace ventarix::edocs
