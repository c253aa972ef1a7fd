// Saving a captured document: header, rows, totals, stock and what depends on it, in one
// transaction.
#include <optional>

#include <QHash>
#include <QSet>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>

#include "core/dialect.h"
#include "core/mFunciones.h"
#include "core/mFunciones_valores.h"
#include "core/schema.h"
#include "documents/captura.h"
#include "documents/captura_filas.h"
#include "documents/mInventario.h"
#include "documents/mSaldos.h"

namespace ventarix::captura {

namespace {

using namespace Qt::StringLiterals;

QString Detalles(const FamiliaCaptura& f) { return QString::fromUtf8(f.tabla) + u" detalles"_s; }

bool TieneColumna(const QString& tabla, const QString& columna) {
  // Asked for every row of every save: the definition's columns are read once.
  static const QHash<QString, QSet<QString>> kColumnas = [] {
    QHash<QString, QSet<QString>> columnas;
    for (const schema::Table& t : schema::Tables()) {
      QSet<QString>& nombres = columnas[QString::fromUtf8(t.name)];
      for (const schema::Column& c : t.columns) nombres.insert(QString::fromUtf8(c.name));
    }
    return columnas;
  }();
  return kColumnas.value(tabla.toLower()).contains(columna.toLower());
}

// A family of folio ranges takes the range's serie and scheme into the header, as the screen
// shows them; a change keeps those the document was saved with.
void PonerRango(const Session& session, Connection& c, const FamiliaCaptura& f, Documento* d,
                const Documento* guardado) {
  if (!f.rango.tabla) return;
  if (guardado) {
    for (const QString& columna : {u"serie"_s, u"esquema"_s, QString::fromUtf8(f.rango.columna)}) {
      if (!d->encabezado.contains(columna)) {
        d->encabezado.insert(columna, guardado->encabezado.value(columna));
      }
    }
    return;
  }
  const SerieDelDocumento s = SerieDe(session, c, f, *d);
  d->encabezado.insert(u"serie"_s, s.serie);
  d->encabezado.insert(u"esquema"_s, s.esquema);
  d->encabezado.insert(QString::fromUtf8(f.rango.columna), s.rango);
}

// Header `Impuesto`: the first rate above 0 among the rows.
double ImpuestoDe(const Documento& d) {
  for (const QVariantMap& p : d.partidas) {
    if (TieneCodigo(p) && Numero(p, "impuesto") > 0) return Numero(p, "impuesto");
  }
  return 0;
}

bool Insertar(Connection& c, const QString& tabla, const QVariantMap& fila, bool sin_choque,
              bool* escrito, QString* error) {
  QStringList nombres;
  for (const QString& columna : fila.keys()) nombres << dialect::Name(columna);
  // The rows of a document share their columns: one statement prepared for all of them.
  QSqlQuery& q =
      c.ExecRepetida(u"insert into "_s + dialect::Name(tabla) + u" ("_s + nombres.join(u", "_s) +
                         u") values ("_s + QStringList(fila.size(), u"?"_s).join(u", "_s) + u")"_s +
                         (sin_choque ? u" on conflict do nothing"_s : QString()),
                     fila.values());
  if (q.lastError().isValid()) {
    *error = QueryError(q);
    return false;
  }
  if (escrito) *escrito = q.numRowsAffected() == 1;
  return true;
}

// The columns every save sets on the header, then the family's own from the document.
QVariantMap Encabezado(const Session& session, const FamiliaCaptura& f, const Documento& d,
                       const QDateTime& ahora) {
  const QString tabla = QString::fromUtf8(f.tabla);
  QVariantMap fila;
  for (const QString& columna : f.columnas) {
    if (d.encabezado.contains(columna)) fila.insert(columna, d.encabezado.value(columna));
  }
  const QDateTime fecha = FechaDe(d);
  fila.insert(u"fecha"_s, dialect::DateValue(fecha, session.Sql));
  fila.insert(u"hora"_s, dialect::DateValue(ahora, session.Sql));
  fila.insert(u"periodo"_s, fecha.date().year());
  fila.insert(u"usuario"_s, session.Usuario);
  fila.insert(u"equipo"_s, session.Equipo);
  fila.insert(u"impuesto"_s, ImpuestoDe(d));
  // Stock documents name no party.
  if (f.socio)
    fila.insert(QString::fromUtf8(f.socio), static_cast<qint32>(Numero(d.encabezado, f.socio)));
  if (!TieneColumna(tabla, u"equipo"_s)) fila.remove(u"equipo"_s);
  return fila;
}

// The rows with a code, numbered from 1, under the document's key.
bool EscribirPartidas(const Session& session, Connection& c, const FamiliaCaptura& f,
                      const Documento& d, const QString& llave, int almacen, QStringList* fuentes,
                      QString* error) {
  const QString tabla = Detalles(f);
  const QVariantMap vacia = mFunciones::InicializarRegistro(tabla);
  const QVariant fecha = dialect::DateValue(FechaDe(d), session.Sql);
  // Every row has the same columns: one statement, prepared once, takes them all.
  std::optional<QSqlQuery> insert;
  int item = 0;
  for (const QVariantMap& p : d.partidas) {
    if (!Presente(f, p)) continue;
    QVariantMap fila;
    for (auto it = vacia.begin(); it != vacia.end(); ++it) fila.insert(it.key().toLower(), *it);
    fila.insert(QString::fromUtf8(f.llave), llave);
    fila.insert(u"item"_s, ++item);
    fila.insert(u"fecha"_s, fecha);
    if (f.socio && TieneColumna(tabla, QString::fromUtf8(f.socio))) {
      fila.insert(QString::fromUtf8(f.socio), static_cast<qint32>(Numero(d.encabezado, f.socio)));
    }
    if (f.productos) {
      fila.insert(u"codigo"_s, Texto(p, "codigo").toUpper());
      fila.insert(u"descripcion"_s, Texto(p, "descripcion"));
      fila.insert(u"unidad"_s, Texto(p, "unidad"));
      fila.insert(u"cantidad"_s, Numero(p, "cantidad"));
    }
    for (const QString& columna : f.columnas_partida) {
      if (!TieneColumna(tabla, columna)) continue;
      const QVariant valor = p.value(columna);
      fila.insert(columna, valor.metaType().id() == QMetaType::QString
                               ? QVariant(mFunciones::ValorTexto(valor))
                               : QVariant(mFunciones::ValorNumerico(valor)));
    }
    // A document that moves no stock still names the store it was captured in.
    if (f.almacen_partida) {
      fila.insert(QString::fromUtf8(f.almacen_partida), almacen > 0 ? almacen : session.Tienda);
    }
    if (f.fuente_partida) {
      const QString fuente = Texto(p, f.fuente_partida);
      fila.insert(QString::fromUtf8(f.fuente_partida), fuente);
      if (!fuente.isEmpty() && !fuentes->contains(fuente)) fuentes->append(fuente);
    }
    if (!insert) {
      QStringList nombres;
      for (const QString& columna : fila.keys()) nombres << dialect::Name(columna);
      insert.emplace(c.db());
      insert->prepare(u"insert into "_s + dialect::Name(tabla) + u" ("_s + nombres.join(u", "_s) +
                      u") values ("_s + QStringList(fila.size(), u"?"_s).join(u", "_s) + u')');
    }
    int i = 0;
    for (const QVariant& valor : fila) insert->bindValue(i++, valor);
    if (!insert->exec()) {
      *error = QueryError(*insert);
      return false;
    }
  }
  return true;
}

// PostgreSQL: saves of one serie take turns from the folio to the commit, so the next folio is
// never read twice. SQLite's writers already take turns for the whole transaction.
bool TurnoDeFolio(Connection& c, const QString& tabla, const QString& serie, QString* error) {
  if (!c.sql()) return true;
  return c.Run(u"select pg_advisory_xact_lock(hashtext(?))"_s, {u"folio:"_s + tabla + u':' + serie},
               error);
}

// The next folio of the serie, as the key, sealed under it when the family seals; a key taken
// in the same instant moves on to the next folio.
Outcome EscribirEncabezadoNuevo(const Session& session, Connection& c, const FamiliaCaptura& f,
                                const Documento& d, QString* llave) {
  const QString tabla = QString::fromUtf8(f.tabla);
  const QString serie =
      f.rango.tabla ? Texto(d.encabezado, "serie") : SerieDe(session, c, f, d).serie;
  QString error;
  if (!TurnoDeFolio(c, tabla, serie, &error)) return Outcome::Stop(error);
  QVariantMap fila;
  const QVariantMap vacia = mFunciones::InicializarRegistro(tabla);
  for (auto it = vacia.begin(); it != vacia.end(); ++it) fila.insert(it.key().toLower(), *it);
  fila.insert(Encabezado(session, f, d, mFunciones::FechaServidor(c, session)));
  fila.insert(u"serie"_s, serie);
  fila.insert(u"status"_s, QString::fromUtf8(f.status_inicial));
  if (TieneColumna(tabla, u"tienda"_s)) fila.insert(u"tienda"_s, session.Tienda);
  for (int intento = 0; intento < 50; ++intento) {
    const qint32 siguiente =
        mFunciones::NumeroSiguiente(c, u"folio"_s, tabla, u"where serie = ?"_s, {serie});
    qint32 folio = siguiente;
    if (f.sellar) {
      QVariantMap sellado;
      if (Outcome o = f.sellar(session, c, d, serie, &folio, &sellado); !o) return o;
      fila.insert(sellado);
    }
    *llave = Llave(serie, folio);
    fila.insert(u"folio"_s, folio);
    fila.insert(QString::fromUtf8(f.llave), *llave);
    bool escrito = false;
    if (!Insertar(c, tabla, fila, true, &escrito, &error)) return Outcome::Stop(error);
    if (escrito) return Outcome::Ok();
    // Only the serie's next folio is another workstation's in the same instant.
    if (f.folio_existente && folio != siguiente) break;
  }
  if (f.folio_existente) {
    return Outcome::Warning(QString::fromUtf8(f.folio_existente) + u"\n\n"_s + *llave, u"Datos0"_s);
  }
  return Outcome::Stop(u"No se pudo tomar un folio nuevo de la serie "_s + serie);
}

struct Guardado0 {
  QString llave;
  int almacen = 0;
  int almacen_anterior = 0;  // where the stored rows moved stock, for a change
  QStringList fuentes;       // source documents of the rows, before and after
  qint32 socio_anterior = 0;
};

// Goods out (-1) or back in (+1) when the document is saved.
int Signo(Existencias e) { return e == Existencias::kSalida ? -1 : +1; }

Outcome EscribirCambio(const Session& session, Connection& c, const FamiliaCaptura& f,
                       const Documento& d, Guardado0* g) {
  const QString tabla = QString::fromUtf8(f.tabla);
  const QString columna = QString::fromUtf8(f.llave);
  QString error;
  if (f.fuente_partida) {
    g->fuentes = mSaldos::ListaDocumentosRelacionados(c, tabla, columna, d.llave,
                                                      QString::fromUtf8(f.fuente_partida), &error);
    g->fuentes.removeAll(QString());
  }
  QVariantMap fila = Encabezado(session, f, d, mFunciones::FechaServidor(c, session));
  if (f.sellar) {
    qint32 folio = static_cast<qint32>(Numero(d.encabezado, "folio"));
    if (Outcome o = f.sellar(session, c, d, Texto(d.encabezado, "serie"), &folio, &fila); !o) {
      return o;
    }
  }
  QStringList asignaciones;
  for (const QString& nombre : fila.keys()) asignaciones << dialect::Name(nombre) + u" = ?"_s;
  QVariantList valores = fila.values();
  valores << d.llave;
  if (!c.Run(u"update "_s + dialect::Name(tabla) + u" set "_s + asignaciones.join(u", "_s) +
                 u" where "_s + dialect::Name(columna) + u" = ?"_s,
             valores, &error)) {
    return Outcome::Stop(error);
  }
  if (f.mover) {
    if (Outcome o = f.mover(session, c, d.llave, -1); !o) return o;
  } else if (f.existencias != Existencias::kNinguna && g->almacen_anterior > 0 &&
             !mInventario::ActualizarExistencias(c, tabla, columna, d.llave, g->almacen_anterior,
                                                 -Signo(f.existencias), &error)) {
    return Outcome::Stop(error);
  }
  if (f.cambio_con_partidas && !mFunciones::BorrarDetalles(c, tabla, columna, d.llave)) {
    return Outcome::Stop(u"No se pudieron borrar las partidas de "_s + d.llave);
  }
  return Outcome::Ok();
}

}  // namespace

QString Llave(const QString& serie, qint32 folio) {
  return serie.isEmpty() ? QString::number(folio) : serie + u'-' + QString::number(folio);
}

Guardado GuardarDocumento(Session& session, const FamiliaCaptura& f, Documento d) {
  Connection c(session.Cadena);
  if (!c.ok()) return {Outcome::Stop(c.error()), {}};
  Transaction t(c);
  if (!t.ok()) return {Outcome::Stop(t.error()), {}};
  const Guardado g = GuardarDocumento(session, c, f, std::move(d));
  if (!g.outcome) return g;
  if (!t.Commit()) return {Outcome::Stop(t.error()), {}};
  session.*f.actual = g.llave;
  return g;
}

Guardado GuardarDocumento(const Session& session, Connection& c, const FamiliaCaptura& f,
                          Documento d) {
  const bool alta = d.llave.isEmpty();
  if (!d.encabezado.contains(u"fecha"_s)) {
    d.encabezado.insert(u"fecha"_s, mFunciones::FechaServidor(c, session, true));
  }
  if (f.completar_encabezado) {
    if (Outcome o = f.completar_encabezado(session, c, &d); !o) return {o, {}};
  }
  const bool con_partidas = alta || f.cambio_con_partidas;
  if (f.completar && con_partidas) {
    for (QVariantMap& p : d.partidas) {
      if (!Presente(f, p)) continue;
      if (Outcome o = f.completar(session, c, d, &p); !o) return {o, {}};
    }
  }
  Guardado0 g;
  if (!alta) {
    const Leido leido = LeerDocumento(c, f, d.llave);
    if (!leido.outcome) return {leido.outcome, {}};
    if (!leido.modificable) {
      return {Outcome::Stop(u"Este documento ya no se puede modificar"_s), {}};
    }
    PonerRango(session, c, f, &d, &leido.documento);
    if (f.socio)
      g.socio_anterior = static_cast<qint32>(Numero(leido.documento.encabezado, f.socio));
    g.almacen_anterior = f.almacen ? f.almacen(leido.documento) : AlmacenDe(session, c, f, d);
  } else {
    PonerRango(session, c, f, &d, nullptr);
    if (d.folio_previsto <= 0) {
      const QString serie =
          f.rango.tabla ? Texto(d.encabezado, "serie") : SerieDe(session, c, f, d).serie;
      d.folio_previsto = mFunciones::NumeroSiguiente(c, u"folio"_s, QString::fromUtf8(f.tabla),
                                                     u"where serie = ?"_s, {serie});
    }
  }
  if (Outcome o = Revisar(session, c, f, d); !o) return {o, {}};

  g.llave = d.llave;
  g.almacen = AlmacenDe(session, c, f, d);
  if (Outcome o = alta ? EscribirEncabezadoNuevo(session, c, f, d, &g.llave)
                       : EscribirCambio(session, c, f, d, &g);
      !o) {
    return {o, {}};
  }
  QString error;
  if (con_partidas && !EscribirPartidas(session, c, f, d, g.llave, g.almacen, &g.fuentes, &error)) {
    return {Outcome::Stop(error), {}};
  }
  if (f.totalizar) {
    if (Outcome o = f.totalizar(session, c, d, g.llave); !o) return {o, {}};
  }
  if (f.mover) {
    if (Outcome o = f.mover(session, c, g.llave, +1); !o) return {o, {}};
  } else if (f.existencias != Existencias::kNinguna && g.almacen > 0 &&
             !mInventario::ActualizarExistencias(c, QString::fromUtf8(f.tabla),
                                                 QString::fromUtf8(f.llave), g.llave, g.almacen,
                                                 Signo(f.existencias), &error)) {
    return {Outcome::Stop(error), {}};
  }
  if (f.recalcular) {
    const Hechos hechos{
        .llave = g.llave, .fuentes = g.fuentes, .alta = alta, .socio_anterior = g.socio_anterior};
    if (Outcome o = f.recalcular(session, c, d, hechos); !o) return {o, {}};
  }
  return {Outcome::Ok(), g.llave};
}

}  // namespace ventarix::captura
