#include "edocs/ui/frm_folios.h"

namespace ventarix {

using namespace Qt::StringLiterals;
using edocs::FamiliaFolios;

FrmFoliosFacturasA::FrmFoliosFacturasA(Session& session, QWidget* parent)
    : FormaFolios(session, FamiliaFolios::kFacturas, true, {}, parent) {
  setObjectName(u"FrmFoliosFacturasA"_s);
  setWindowTitle(u"Folios Facturas - Alta"_s);
}

FrmFoliosFacturasC::FrmFoliosFacturasC(Session& session, const QString& llave, QWidget* parent)
    : FormaFolios(session, FamiliaFolios::kFacturas, false, llave, parent) {
  setObjectName(u"FrmFoliosFacturasC"_s);
  setWindowTitle(u"Folios Facturas - Cambios"_s);
}

FrmFoliosNotasA::FrmFoliosNotasA(Session& session, QWidget* parent)
    : FormaFolios(session, FamiliaFolios::kNotas, true, {}, parent) {
  setObjectName(u"FrmFoliosNotasA"_s);
  setWindowTitle(u"Folios Notas - Alta"_s);
}

FrmFoliosNotasC::FrmFoliosNotasC(Session& session, const QString& llave, QWidget* parent)
    : FormaFolios(session, FamiliaFolios::kNotas, false, llave, parent) {
  setObjectName(u"FrmFoliosNotasC"_s);
  setWindowTitle(u"Folios Notas - Cambios"_s);
}

}  // namespace ventarix
