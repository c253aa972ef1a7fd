#pragma once

// Owning handles of libxml2, libxslt and libexslt, each freed by the library's own function.
// Included by the domain's .cpp files only: the libraries are linked privately.
#include <memory>

#include <libexslt/exslt.h>
#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxml/xmlschemas.h>
#include <libxml/xpath.h>
#include <libxslt/transform.h>
#include <libxslt/xsltInternals.h>
#include <libxslt/xsltutils.h>

namespace ventarix::edocs {

// One-time set-up of the three libraries, safe from any thread: the parser, the EXSLT
// functions, and XSLT's default security (style sheets and their includes never reach the
// network nor write files). Every function that uses libxml2 calls it first.
void InicializarXml();

template <auto Free>
struct XmlFree {
  template <typename T>
  void operator()(T* p) const {
    Free(p);
  }
};

using XmlDocPtr = std::unique_ptr<xmlDoc, XmlFree<xmlFreeDoc>>;
using XmlParserCtxtPtr = std::unique_ptr<xmlParserCtxt, XmlFree<xmlFreeParserCtxt>>;
using XmlXPathContextPtr = std::unique_ptr<xmlXPathContext, XmlFree<xmlXPathFreeContext>>;
using XmlXPathObjectPtr = std::unique_ptr<xmlXPathObject, XmlFree<xmlXPathFreeObject>>;

// A buffer the library allocated (xmlDocDumpMemory, xmlGetProp, xsltSaveResultToString).
// xmlFree is a variable holding the allocator's free function, hence the struct.
struct XmlCharFree {
  void operator()(xmlChar* p) const { xmlFree(p); }
};
using XmlCharPtr = std::unique_ptr<xmlChar, XmlCharFree>;

// A compiled style sheet owns the document it was compiled from: once xsltParseStylesheetDoc
// succeeds, release the XmlDocPtr instead of freeing it.
using XsltStylesheetPtr = std::unique_ptr<xsltStylesheet, XmlFree<xsltFreeStylesheet>>;
using XsltTransformContextPtr =
    std::unique_ptr<xsltTransformContext, XmlFree<xsltFreeTransformContext>>;

using XmlSchemaPtr = std::unique_ptr<xmlSchema, XmlFree<xmlSchemaFree>>;
using XmlSchemaParserCtxtPtr =
    std::unique_ptr<xmlSchemaParserCtxt, XmlFree<xmlSchemaFreeParserCtxt>>;
using XmlSchemaValidCtxtPtr = std::unique_ptr<xmlSchemaValidCtxt, XmlFree<xmlSchemaFreeValidCtxt>>;

}  // namespace ventarix::edocs
