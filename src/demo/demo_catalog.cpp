#include "demo/demo_catalog.h"

namespace ventarix::demo {

const QList<const char*>& Lineas() {
  static const QList<const char*> lineas{"TORNILLERÍA Y FIJACIÓN", "HERRAMIENTA MANUAL",
                                         "HERRAMIENTA ELÉCTRICA",  "MATERIAL ELÉCTRICO",
                                         "PINTURAS Y ACABADOS",    "PLOMERÍA",
                                         "ADHESIVOS Y SELLADORES", "JARDINERÍA",
                                         "CERRAJERÍA Y HERRAJES",  "SEGURIDAD INDUSTRIAL"};
  return lineas;
}

const QList<Marca>& Marcas() {
  static const QList<Marca> marcas{
      {"TORNIMEX", {60, 50, 42, 35, 28}, 2},    {"AZTECA", {40, 34, 30, 26, 22}, 3},
      {"POTENZA", {30, 26, 22, 19, 16}, 1},     {"VOLTAMEX", {45, 38, 32, 27, 22}, 4},
      {"VALLE COLOR", {38, 32, 28, 24, 20}, 5}, {"HIDROFLUX", {42, 36, 30, 25, 20}, 6},
      {"FIJAFUERTE", {50, 42, 36, 30, 25}, 7},  {"JARDÍN VERDE", {40, 34, 29, 25, 21}, 8},
      {"CERRAMEX", {45, 38, 33, 28, 24}, 9},    {"PROTEK", {48, 40, 34, 28, 23}, 10}};
  return marcas;
}

namespace {

QList<Articulo> Fijacion() {
  return {
      {1,
       "TORNILLO PARA MADERA CABEZA PLANA, CAJA CON 100",
       "CAJA",
       3800,
       {"6 X 1/2\"", "6 X 3/4\"", "6 X 1\"", "8 X 1\"", "8 X 1 1/2\"", "8 X 2\"", "10 X 2\"",
        "10 X 2 1/2\"", "10 X 3\"", "12 X 3\""}},
      {1,
       "TORNILLO HEXAGONAL GALVANIZADO, CAJA CON 50",
       "CAJA",
       5500,
       {"1/4 X 1\"", "1/4 X 2\"", "5/16 X 1\"", "5/16 X 2\"", "3/8 X 1\"", "3/8 X 2\"", "3/8 X 3\"",
        "1/2 X 2\"", "1/2 X 3\"", "1/2 X 4\""}},
      {1,
       "TORNILLO PARA TABLAROCA, CAJA CON 100",
       "CAJA",
       2900,
       {"6 X 1\"", "6 X 1 1/4\"", "6 X 1 5/8\"", "8 X 2\"", "8 X 2 1/2\"", "8 X 3\""}},
      {1,
       "TUERCA HEXAGONAL GALVANIZADA, CAJA CON 100",
       "CAJA",
       3000,
       {"1/4\"", "5/16\"", "3/8\"", "1/2\"", "5/8\""}},
      {1,
       "RONDANA PLANA GALVANIZADA, CAJA CON 100",
       "CAJA",
       2200,
       {"1/4\"", "5/16\"", "3/8\"", "1/2\"", "5/8\""}},
      {1,
       "TAQUETE DE PLÁSTICO, BOLSA CON 100",
       "BOLSA",
       1800,
       {"1/4\"", "5/16\"", "3/8\"", "1/2\""}},
      {1,
       "PIJA PARA LÁMINA PUNTA BROCA, CAJA CON 100",
       "CAJA",
       4500,
       {"8 X 1/2\"", "8 X 3/4\"", "10 X 1\"", "12 X 1 1/2\"", "14 X 2\""}},
      {1, "CLAVO ESTÁNDAR", "KG", 3200, {"1\"", "1 1/2\"", "2\"", "2 1/2\"", "3\"", "4\""}},
      {1,
       "ANCLA EXPANSIVA",
       "PZA",
       650,
       {"1/4 X 2 1/4\"", "3/8 X 3\"", "1/2 X 4 1/4\"", "5/8 X 6\""}},
  };
}

QList<Articulo> Herramienta() {
  return {
      {2, "MARTILLO DE UÑA MANGO DE FIBRA", "PZA", 9500, {"16 OZ", "20 OZ", "24 OZ"}},
      {2, "DESARMADOR PLANO", "PZA", 2200, {"1/8 X 3\"", "3/16 X 4\"", "1/4 X 6\"", "5/16 X 8\""}},
      {2, "DESARMADOR DE CRUZ", "PZA", 2200, {"#0 X 3\"", "#1 X 4\"", "#2 X 6\"", "#3 X 8\""}},
      {2, "PINZA DE ELECTRICISTA", "PZA", 8500, {"7\"", "8\"", "9\""}},
      {2, "PINZA DE PRESIÓN", "PZA", 9000, {"7\"", "10\""}},
      {2,
       "LLAVE ESPAÑOLA",
       "PZA",
       2800,
       {"8 MM", "10 MM", "12 MM", "13 MM", "14 MM", "17 MM", "19 MM"}},
      {2, "LLAVE AJUSTABLE CROMADA", "PZA", 8000, {"6\"", "8\"", "10\"", "12\""}},
      {2, "FLEXÓMETRO CINTA DE ACERO", "PZA", 4500, {"3 M", "5 M", "8 M"}},
      {2, "SEGUETA BIMETÁLICA", "PZA", 1800, {"18 DIENTES", "24 DIENTES", "32 DIENTES"}, 0},
      {2, "NIVEL DE ALUMINIO", "PZA", 7000, {"12\"", "24\"", "48\""}},
      {2, "JUEGO DE LLAVES ALLEN, 9 PIEZAS", "JUEGO", 6000, {"MILIMÉTRICAS", "ESTÁNDAR"}, 0},
      {3, "TALADRO PERCUTOR 1/2\"", "PZA", 65000, {"550 W", "750 W", "1000 W"}},
      {3, "ESMERILADORA ANGULAR", "PZA", 72000, {"4 1/2\" 750 W", "4 1/2\" 900 W", "7\" 2200 W"}},
      {3, "ROTOMARTILLO SDS PLUS", "PZA", 165000, {"800 W", "1100 W"}},
      {3, "SIERRA CALADORA", "PZA", 78000, {"500 W", "650 W"}},
      {3,
       "BROCA PARA CONCRETO",
       "PZA",
       2400,
       {"3/16\"", "1/4\"", "5/16\"", "3/8\"", "1/2\"", "5/8\""}},
      {3,
       "BROCA PARA METAL HSS",
       "PZA",
       1500,
       {"1/8\"", "3/16\"", "1/4\"", "5/16\"", "3/8\"", "1/2\""}},
      {3, "DISCO DE CORTE PARA METAL", "PZA", 1200, {"4 1/2\"", "7\"", "9\"", "14\""}},
  };
}

QList<Articulo> Instalaciones() {
  return {
      {4, "CABLE THW CALIBRE", "METRO", 680, {"14", "12", "10", "8"}},
      {4, "CABLE DÚPLEX POT CALIBRE", "METRO", 550, {"18", "16", "14"}},
      {4, "CONTACTO DÚPLEX POLARIZADO", "PZA", 2800, {"BLANCO", "MARFIL", "GRIS"}, 0},
      {4, "APAGADOR SENCILLO", "PZA", 2400, {"BLANCO", "MARFIL", "GRIS"}, 0},
      {4,
       "FOCO LED",
       "PZA",
       2600,
       {"7 W LUZ DE DÍA", "9 W LUZ DE DÍA", "12 W LUZ DE DÍA", "9 W LUZ CÁLIDA", "12 W LUZ CÁLIDA"},
       10},
      {4,
       "CINTA DE AISLAR 19 MM",
       "PZA",
       950,
       {"NEGRA 9 M", "NEGRA 18 M", "ROJA 9 M", "VERDE 9 M"},
       10},
      {4,
       "INTERRUPTOR TERMOMAGNÉTICO",
       "PZA",
       8500,
       {"1 POLO 15 A", "1 POLO 20 A", "1 POLO 30 A", "2 POLOS 40 A"}},
      {4, "EXTENSIÓN ELÉCTRICA USO RUDO", "PZA", 7500, {"3 M", "5 M", "10 M"}},
      {6, "TUBO DE COBRE TIPO M, TRAMO DE 6 M", "TRAMO", 42000, {"1/2\"", "3/4\"", "1\""}},
      {6, "CODO DE COBRE 90°", "PZA", 900, {"1/2\"", "3/4\"", "1\""}},
      {6, "TEE DE COBRE", "PZA", 1300, {"1/2\"", "3/4\"", "1\""}},
      {6, "TUBO DE PVC HIDRÁULICO, TRAMO DE 6 M", "TRAMO", 6500, {"1/2\"", "3/4\"", "1\"", "2\""}},
      {6, "LLAVE DE PASO DE ESFERA", "PZA", 12000, {"1/2\"", "3/4\"", "1\""}},
      {6, "CINTA TEFLÓN", "PZA", 600, {"1/2\" X 7 M", "3/4\" X 13 M"}},
      {6, "MANGUERA PARA LAVABO", "PZA", 3800, {"30 CM", "40 CM", "50 CM"}},
      {6, "REGADERA CROMADA", "PZA", 21000, {"REDONDA 6\"", "CUADRADA 8\""}, 10},
      {6, "ABRAZADERA SIN FIN", "PZA", 700, {"1/2\"", "3/4\"", "1\"", "1 1/2\"", "2\""}},
  };
}

QList<Articulo> Acabados() {
  return {
      {5,
       "PINTURA VINÍLICA 19 L, CUBETA",
       "CUBETA",
       82000,
       {"BLANCO", "BLANCO OSTIÓN", "HUESO", "GRIS PERLA", "AZUL CIELO", "VERDE MENTA",
        "AMARILLO CANARIO", "TERRACOTA"},
       0},
      {5,
       "PINTURA VINÍLICA 4 L, GALÓN",
       "GALÓN",
       18500,
       {"BLANCO", "BLANCO OSTIÓN", "HUESO", "GRIS PERLA", "AZUL CIELO", "VERDE MENTA",
        "AMARILLO CANARIO", "TERRACOTA"},
       0},
      {5,
       "ESMALTE ALQUIDÁLICO, LITRO",
       "LITRO",
       9500,
       {"BLANCO", "NEGRO", "ROJO", "AZUL", "VERDE", "GRIS"},
       0},
      {5,
       "IMPERMEABILIZANTE ACRÍLICO 5 AÑOS, CUBETA DE 19 L",
       "CUBETA",
       98000,
       {"BLANCO", "ROJO"},
       0},
      {5, "SELLADOR VINÍLICO 5X1, CUBETA DE 19 L", "CUBETA", 54000, {"TRANSPARENTE"}},
      {5, "THINNER ESTÁNDAR", "LITRO", 2800, {"1 L", "4 L"}},
      {5, "BROCHA DE CERDA NATURAL", "PZA", 1800, {"1\"", "2\"", "3\"", "4\""}},
      {5, "RODILLO DE FELPA", "PZA", 5500, {"4\"", "9\""}},
      {7, "PEGAMENTO DE CONTACTO", "PZA", 4500, {"250 ML", "1 L", "4 L"}},
      {7, "SILICÓN ACÉTICO, CARTUCHO DE 280 ML", "PZA", 6200, {"TRANSPARENTE", "BLANCO"}, 0},
      {7, "ADHESIVO EPÓXICO 25 ML", "PZA", 4800, {"5 MINUTOS", "90 MINUTOS"}, 0},
      {7, "PEGAMENTO PARA PVC", "PZA", 3800, {"125 ML", "250 ML", "500 ML"}},
      {7, "ESPUMA DE POLIURETANO", "PZA", 9500, {"340 G", "750 G"}},
      {7, "PEGAZULEJO, SACO DE 20 KG", "SACO", 11000, {"GRIS", "BLANCO"}, 0},
  };
}

QList<Articulo> Exterior() {
  return {
      {8, "MANGUERA REFORZADA", "ROLLO", 18000, {"1/2\" X 15 M", "1/2\" X 25 M", "5/8\" X 30 M"}},
      {8, "PALA MANGO DE MADERA", "PZA", 16500, {"CUADRADA", "REDONDA", "CARBONERA"}, 0},
      {8, "TIJERA PARA PODAR", "PZA", 12000, {"8\"", "24\""}},
      {8, "RASTRILLO METÁLICO", "PZA", 9500, {"14 DIENTES", "16 DIENTES"}},
      {8, "ASPERSOR DE IMPACTO", "PZA", 14000, {"1/2\""}},
      {8, "CARRETILLA LLANTA NEUMÁTICA", "PZA", 89000, {"60 L", "90 L"}},
      {8,
       "SEMILLA PARA PASTO, BOLSA DE 1 KG",
       "BOLSA",
       9000,
       {"SAN AGUSTÍN", "BERMUDA", "RYE GRASS"},
       0,
       0},
      {8, "FERTILIZANTE TRIPLE 17, SACO DE 5 KG", "SACO", 14500, {"GRANULADO"}, 0, 0},
      {9, "CERRADURA DE POMO", "PZA", 21000, {"ENTRADA LATÓN", "BAÑO CROMO", "PASO CROMO"}, 10},
      {9, "CANDADO DE LATÓN", "PZA", 7500, {"30 MM", "40 MM", "50 MM", "60 MM"}},
      {9, "BISAGRA RECTANGULAR", "PAR", 1600, {"2\"", "3\"", "3 1/2\"", "4\""}},
      {9, "CHAPA DE SOBREPONER", "PZA", 26000, {"DERECHA", "IZQUIERDA"}, 0},
      {9, "PASADOR DE BARRIL", "PZA", 1800, {"2\"", "3\"", "4\""}},
      {9, "JALADERA DE ACERO INOXIDABLE", "PZA", 2500, {"96 MM", "128 MM", "160 MM"}},
      {10, "GUANTE DE CARNAZA", "PAR", 3800, {"CORTO", "LARGO"}, 0},
      {10, "LENTE DE SEGURIDAD", "PZA", 3200, {"CLARO", "OSCURO", "ANTIEMPAÑANTE"}, 0},
      {10, "CASCO DE SEGURIDAD", "PZA", 8500, {"BLANCO", "AMARILLO", "AZUL"}, 0},
      {10, "CUBREBOCAS N95, CAJA CON 10", "CAJA", 16000, {"TALLA ÚNICA"}},
      {10, "TAPÓN AUDITIVO", "PAR", 600, {"DESECHABLE", "CON CORDÓN"}, 10},
      {10, "CHALECO REFLEJANTE", "PZA", 5500, {"NARANJA", "VERDE LIMA"}, 0},
      {10, "BOTA DE SEGURIDAD CON CASQUILLO", "PAR", 48000, {"25", "26", "27", "28", "29"}, 0},
  };
}

}  // namespace

const QList<Articulo>& Articulos() {
  static const QList<Articulo> articulos = [] {
    QList<Articulo> all = Fijacion();
    all += Herramienta();
    all += Instalaciones();
    all += Acabados();
    all += Exterior();
    return all;
  }();
  return articulos;
}

}  // namespace ventarix::demo
