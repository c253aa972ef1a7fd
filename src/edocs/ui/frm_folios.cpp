#include "edocs/ui/frm_folios.h"

namespace ventarix {

using namespace Qt::StringLiterals;
using edocs::FamiliaFolios;

FrmFoliosFacturasA::FrmFoliosFacturasA(Session& session, QWidget* parent)
    : FormaFolios(session, FamiliaFolios::kFacturas, true, parent) {
  setObjectName(u"FrmFoliosFacturasA"_s);
  setWindowTitle(u"Folios Facturas - Alta"_s);
}

FrmFoliosFacturasC::FrmFoliosFacturasC(Session& session, QWidget* parent)
    : FormaFolios(session, FamiliaFolios::kFacturas, false, parent) {
  setObjectName(u"FrmFoliosFacturasC"_s);
  setWindowTitle(u"Folios Facturas - Cambios"_s);
}

FrmFoliosNotasA::FrmFoliosNotasA(Session& session, QWidget* parent)
    : FormaFolios(session, FamiliaFolios::kNotas, true, parent) {
  setObjectName(u"FrmFoliosNotasA"_s);
  setWindowTitle(u"Folios Notas - Alta"_s);
}

FrmFoliosNotasC::FrmFoliosNotasC(Session& session, QWidget* parent)
    : FormaFolios(session, FamiliaFolios::kNotas, false, parent) {
  setObjectName(u"FrmFoliosNotasC"_s);
  setWindowTitle(u"Folios Notas - Cambios"_s);
}

}  // namespace ventarix
