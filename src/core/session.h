#pragma once

#include <array>

#include <QDateTime>
#include <QHash>
#include <QString>
#include <QStringList>
#include <QVariant>

namespace ventarix {

// A row read into memory by column name (lower case), for the company, rights and terminal
// blocks of the session. Missing columns read as empty text or zero.
class RowValues {
 public:
  void Set(const QString& column, const QVariant& value) { values_[column.toLower()] = value; }
  bool Has(const QString& column) const { return values_.contains(column.toLower()); }
  QVariant Value(const QString& column) const { return values_.value(column.toLower()); }
  QString Text(const QString& column) const;
  double Number(const QString& column) const;
  int Integer(const QString& column) const { return static_cast<int>(Number(column)); }
  bool Flag(const QString& column) const { return Text(column) == QLatin1String("S"); }
  void Clear() { values_.clear(); }
  const QHash<QString, QVariant>& All() const { return values_; }

 private:
  QHash<QString, QVariant> values_;
};

// The one record alive for the whole run: which company database, who is working, and the
// settings every screen reads. Filled at start-up and reloaded by the splash's session load.
// It is passed explicitly to whatever needs it.
struct Session {
  // Database choice, as kept in the settings store (MDB0..MDB3).
  QString Motor;        // "Sql" or "Access"
  QString BaseDatos;    // the SQLite company file, or the .txt connection file
  QString BaseNombre;   // file name without folder
  QString BaseCarpeta;  // root of the folder tree
  bool Sql = false;     // PostgreSQL company
  bool Access = false;  // SQLite company
  QString Cadena;
  QString CadenaShape;

  // Who is working, and where.
  QString Usuario = QStringLiteral("ADMINISTRADOR");
  bool Administrador = true;
  bool Gerente = false;
  QString Contrasena;
  QString ContrasenaAdministrador;
  QString ContrasenaGerente;
  int Tienda = 1;
  QString Equipo;
  bool UtilizarMayusculas = true;
  quint32 ColorFondo = 0xC0C0FF;

  // Folder tree under BaseCarpeta.
  QString CarpetaInicio, CarpetaEmpresas, CarpetaImagenes, CarpetaErrores, CarpetaEsquemasCFD,
      CarpetaEsquemasCFDi, CarpetaEmpresa, CarpetaCer, CarpetaXml, CarpetaRpt, CarpetaBak,
      CarpetaTmp;

  // Blocks read from the database.
  RowValues empresa;      // row numero = 1 of empresa, or the defaults
  RowValues usuario;      // the user's rights (columns of usuarios)
  RowValues configurar;   // the terminal settings of the user
  QString DocumentosTpv;  // point-of-sale forms in use: "T", "N", "C" joined by commas
  QString SerieTpv;       // series of the first form in use

  // Default series per document family.
  QString SerieOrdenesCompra, SerieCompras, SerieLicitaciones, SerieContraRecibos,
      SerieCotizaciones, SeriePedidos, SerieRemisiones, SerieProduccion, SerieTraspasos, SerieCxC,
      SerieCxP, SerieNcp, SerieAjustes;

  qint32 FolioFacturas = 0;
  qint32 FolioNotas = 0;
  std::array<QString, 5> Almacenes;
  QStringList EsquemasCFD;
  QStringList EsquemasCFDi;
  bool MuchosProductos = false;
  bool Cargado = false;
  bool CambioDeCodigoPendiente = false;  // an interrupted code change waits at start
  QString ArchivoLogo;
  QString BaseTemporal;

  // The key of the document of each family last saved at this workstation.
  QString OrdenActual, CompraActual, ContraReciboActual, LicitacionActual, CotizacionActual,
      PedidoActual, RemisionActual, FacturaActual, ProduccionActual, TraspasoActual, PagoActual,
      NotaActual, AjusteActual;
  // The active browser's search and sort, and whether a filter is on.
  QString VistaBusqueda;
  QString VistaOrden;
  bool FiltroActivo = false;

  // "yyyyMMdd": when set, the server date is this day (tests and demonstrations).
  QString FechaFija;
  // Year shown by the browsers (status bar panel 5).
  int AnoAMostrar = QDate::currentDate().year();
};

}  // namespace ventarix
