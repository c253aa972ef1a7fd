#include "core/column_rules.h"

#include <QHash>
#include <QSet>

#include "core/dialect.h"

namespace ventarix::column_rules {

namespace {

using schema::Type;

// Document header tables and their key columns. `licitaciones` has a status of its own but
// takes no part in the key and detail rules.
const QHash<QString, QString>& HeaderKeys() {
  static const QHash<QString, QString> keys = {
      {QStringLiteral("ordenes de compra"), QStringLiteral("orden")},
      {QStringLiteral("compras"), QStringLiteral("compra")},
      {QStringLiteral("contrarecibos"), QStringLiteral("contrarecibo")},
      {QStringLiteral("cotizaciones"), QStringLiteral("cotizacion")},
      {QStringLiteral("pedidos"), QStringLiteral("pedido")},
      {QStringLiteral("remisiones"), QStringLiteral("remision")},
      {QStringLiteral("facturas"), QStringLiteral("factura")},
      {QStringLiteral("produccion"), QStringLiteral("produccion")},
      {QStringLiteral("traspasos"), QStringLiteral("traspaso")},
      {QStringLiteral("cxc"), QStringLiteral("pago")},
      {QStringLiteral("cxp"), QStringLiteral("pago")},
      {QStringLiteral("notas cliente"), QStringLiteral("nota")},
      {QStringLiteral("notas proveedor"), QStringLiteral("nota")},
      {QStringLiteral("ajustes de inventario"), QStringLiteral("ajuste")},
  };
  return keys;
}

// Tables whose documento, almacen and item must be above zero: the headers above, their
// detail tables, the invoice summary and the stock count.
bool IsDocumentTable(const QString& table) {
  if (HeaderKeys().contains(table)) return true;
  if (table == QLatin1String("facturas resumen") || table == QLatin1String("inventario")) {
    return true;
  }
  const QString suffix = QStringLiteral(" detalles");
  return table.endsWith(suffix) && HeaderKeys().contains(table.chopped(suffix.size()));
}

struct Status {
  const char* initial;
  QStringList domain;  // empty: any word
};

// Status default and domain of each header table.
const Status* HeaderStatus(const QString& table) {
  static const QStringList kAltaBaja = {QStringLiteral("ALTA"), QStringLiteral("BAJA")};
  static const QStringList kSurtir = {QStringLiteral("POR SURTIR"), QStringLiteral("SURTIDO"),
                                      QStringLiteral("BACKORDER"), QStringLiteral("BAJA")};
  static const QHash<QString, Status> statuses = {
      {QStringLiteral("facturas"),
       {"POR COBRAR",
        {QStringLiteral("POR COBRAR"), QStringLiteral("LIQUIDADO"), QStringLiteral("BAJA")}}},
      {QStringLiteral("traspasos"),
       {"APLICADO", {QStringLiteral("APLICADO"), QStringLiteral("BAJA")}}},
      {QStringLiteral("produccion"),
       {"EN PROCESO",
        {QStringLiteral("EN PROCESO"), QStringLiteral("CERRADA"), QStringLiteral("BAJA")}}},
      {QStringLiteral("pedidos"), {"POR SURTIR", kSurtir}},
      {QStringLiteral("ordenes de compra"), {"POR SURTIR", kSurtir}},
      {QStringLiteral("compras"),
       {"POR PAGAR",
        {QStringLiteral("POR PAGAR"), QStringLiteral("LIQUIDADA"), QStringLiteral("BAJA")}}},
      {QStringLiteral("contrarecibos"), {"ALTA", kAltaBaja}},
      {QStringLiteral("cotizaciones"), {"ALTA", kAltaBaja}},
      {QStringLiteral("cxc"), {"ALTA", kAltaBaja}},
      {QStringLiteral("cxp"), {"ALTA", kAltaBaja}},
      {QStringLiteral("notas cliente"), {"ALTA", kAltaBaja}},
      {QStringLiteral("notas proveedor"), {"ALTA", kAltaBaja}},
      {QStringLiteral("licitaciones"), {"ALTA", kAltaBaja}},
      {QStringLiteral("ajustes de inventario"), {"ALTA", kAltaBaja}},
      // A delivery note's status holds the invoice's key once it is invoiced.
      {QStringLiteral("remisiones"), {"POR FACTURAR", {}}},
  };
  auto it = statuses.constFind(table);
  return it == statuses.constEnd() ? nullptr : &it.value();
}

QString Literal(const QString& text) {
  QString escaped = text;
  escaped.replace(QLatin1Char('\''), QStringLiteral("''"));
  return QLatin1Char('\'') + escaped + QLatin1Char('\'');
}

void AddCheck(Rules& rules, const QString& column, const char* kind, const QString& expression) {
  QString name = QStringLiteral("ck_") + column + QLatin1Char('_') + QLatin1String(kind);
  name.replace(QLatin1Char(' '), QLatin1Char('_'));
  for (const Check& c : rules.checks) {
    if (c.name == name) return;
  }
  rules.checks.push_back({name, expression});
}

void AddPositive(Rules& rules, const QString& column) {
  AddCheck(rules, column, "positivo", dialect::Name(column) + QStringLiteral(" > 0"));
}

void AddDomain(Rules& rules, const QString& column, const QStringList& words) {
  QStringList literals;
  for (const QString& w : words) literals << Literal(w);
  AddCheck(rules, column, "valido",
           dialect::Name(column) + QStringLiteral(" in (") + literals.join(QStringLiteral(", ")) +
               QLatin1Char(')'));
}

// Required; a required text also refuses the empty text.
void Require(Rules& rules, const QString& column, Type type) {
  rules.required = true;
  if (IsText(type)) {
    AddCheck(rules, column, "no_vacio", dialect::Name(column) + QStringLiteral(" <> ''"));
  }
}

}  // namespace

bool IsText(Type type) { return type == Type::kText || type == Type::kYesNo; }

bool IsNumeric(Type type) {
  return type == Type::kInt32 || type == Type::kInt16 || type == Type::kDouble;
}

bool IsCatalogue(const QString& table) {
  static const QSet<QString> catalogues = {
      QStringLiteral("clientes"), QStringLiteral("agentes"), QStringLiteral("proveedores"),
      QStringLiteral("marcas"),   QStringLiteral("lineas"),  QStringLiteral("productos"),
      QStringLiteral("bancos")};
  return catalogues.contains(table.toLower());
}

QString HeaderKey(const QString& table) { return HeaderKeys().value(table.toLower()); }

Rules For(const QString& table_name, const QString& column_name, Type type) {
  static const QSet<QString> kPositive = {QStringLiteral("folio"),   QStringLiteral("numero"),
                                          QStringLiteral("cliente"), QStringLiteral("proveedor"),
                                          QStringLiteral("metodo"),  QStringLiteral("marca"),
                                          QStringLiteral("linea"),   QStringLiteral("tienda"),
                                          QStringLiteral("ingreso"), QStringLiteral("egreso")};
  static const QSet<QString> kRequired = {
      QStringLiteral("folio"),     QStringLiteral("numero"),  QStringLiteral("cliente"),
      QStringLiteral("proveedor"), QStringLiteral("metodo"),  QStringLiteral("esquema"),
      QStringLiteral("fecha"),     QStringLiteral("tienda"),  QStringLiteral("status"),
      QStringLiteral("equipo"),    QStringLiteral("usuario"), QStringLiteral("periodo")};
  static const QSet<QString> kDocumentNumbers = {QStringLiteral("documento"),
                                                 QStringLiteral("almacen"), QStringLiteral("item")};
  static const QSet<QString> kRowTexts = {QStringLiteral("descripcion"), QStringLiteral("codigo"),
                                          QStringLiteral("unidad")};

  const QString table = table_name.toLower();
  const QString column = column_name.toLower();
  Rules rules;
  if (IsText(type)) rules.default_value = QStringLiteral("''");
  if (IsNumeric(type)) rules.default_value = QStringLiteral("0");

  if (kPositive.contains(column) && IsNumeric(type)) AddPositive(rules, column);
  if (column == QLatin1String("esquema") && IsText(type)) {
    AddDomain(rules, column,
              {QStringLiteral("CBB"), QStringLiteral("CFD"), QStringLiteral("CFDI"),
               QStringLiteral("NOTA")});
  }
  if (kRequired.contains(column)) Require(rules, column, type);

  if (IsDocumentTable(table)) {
    if (kDocumentNumbers.contains(column) && IsNumeric(type)) {
      AddPositive(rules, column);
      Require(rules, column, type);
    }
    if (HeaderKeys().value(table) == column) Require(rules, column, type);
  }

  if (column == QLatin1String("status")) {
    if (const Status* status = HeaderStatus(table)) {
      rules.default_value = Literal(QLatin1String(status->initial));
      if (!status->domain.isEmpty()) AddDomain(rules, column, status->domain);
    } else if (IsCatalogue(table)) {
      rules.default_value = QStringLiteral("'ALTA'");
      AddDomain(rules, column, {QStringLiteral("ALTA"), QStringLiteral("BAJA")});
    }
  }
  if (column == QLatin1String("moneda") && IsCatalogue(table)) {
    rules.default_value = QStringLiteral("'MXN'");
  }

  if (table.contains(QLatin1String("detalles")) && kRowTexts.contains(column)) {
    Require(rules, column, type);
  }
  return rules;
}

}  // namespace ventarix::column_rules
