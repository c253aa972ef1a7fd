#pragma once

// The sales screens' own buttons and displays, as the family rows name them. Each works on
// the open screen through the capture engine's form and calls the sales rules.
namespace ventarix {
class FormaCaptura;
}

namespace ventarix::ventas_ui {

void AplicarDescuento(FormaCaptura& forma);
void AplicarDescuentoEnPrecio(FormaCaptura& forma);
void AplicarUtilidadxPartida(FormaCaptura& forma);
void AplicarPedido(FormaCaptura& forma);
void AplicarCotizacion(FormaCaptura& forma);
// The client's balance with this document and the limit; over it, Msg1 flashes.
void MostrarCredito(FormaCaptura& forma);
// F1 on a row's price: the client's price, the sale price and the five levels.
void ListaDePrecios(FormaCaptura& forma, int fila);

}  // namespace ventarix::ventas_ui
