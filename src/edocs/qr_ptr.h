#pragma once

// Owning handle of libqrencode's symbol. Included by the domain's .cpp files only: the
// library is linked privately.
#include <memory>

#include <qrencode.h>

namespace ventarix::edocs {

struct QrCodeFree {
  void operator()(QRcode* code) const { QRcode_free(code); }
};
using QrCodePtr = std::unique_ptr<QRcode, QrCodeFree>;

}  // namespace ventarix::edocs
