#pragma once

namespace ventarix {
class Navegador;
}

namespace ventarix::ventas_ui {

// Toolbar button 6 of the invoice and credit-note browsers: the selected row stamped by the
// PAC, the PAC's reply shown, the row shown again.
void TimbrarFactura(Navegador& navegador);
void TimbrarNota(Navegador& navegador);
// The menu of that button: a UUID typed by the user cancelled at the PAC with the certificate
// and key files the user picks, after three confirmations and the key's password.
void CancelarUUID(Navegador& navegador);

}  // namespace ventarix::ventas_ui
