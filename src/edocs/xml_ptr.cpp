#include "edocs/xml_ptr.h"

#include <mutex>

#include <libxslt/security.h>

namespace ventarix::edocs {

void InicializarXml() {
  static std::once_flag once;
  std::call_once(once, [] {
    xmlInitParser();
    exsltRegisterAll();
    // The SAT sheets only read their includes beside them; nothing a sheet does may fetch
    // from the network or write to disk. The preferences object lives as long as the program.
    xsltSecurityPrefsPtr prefs = xsltNewSecurityPrefs();
    xsltSetSecurityPrefs(prefs, XSLT_SECPREF_READ_NETWORK, xsltSecurityForbid);
    xsltSetSecurityPrefs(prefs, XSLT_SECPREF_WRITE_NETWORK, xsltSecurityForbid);
    xsltSetSecurityPrefs(prefs, XSLT_SECPREF_WRITE_FILE, xsltSecurityForbid);
    xsltSetSecurityPrefs(prefs, XSLT_SECPREF_CREATE_DIRECTORY, xsltSecurityForbid);
    xsltSetDefaultSecurityPrefs(prefs);
  });
}

}  // namespace ventarix::edocs
