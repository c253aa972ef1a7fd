#pragma once

// Owning handles of libcurl, each freed by the library's own function. Included by the
// domain's .cpp files only: the library is linked privately.
#include <memory>

#include <curl/curl.h>

namespace ventarix::edocs {

// One-time set-up of libcurl (its TLS back end included), safe from any thread.
void InicializarCurl();

template <auto Free>
struct CurlFree {
  template <typename T>
  void operator()(T* p) const {
    Free(p);
  }
};

using CurlPtr = std::unique_ptr<CURL, CurlFree<curl_easy_cleanup>>;
using CurlSlistPtr = std::unique_ptr<curl_slist, CurlFree<curl_slist_free_all>>;

}  // namespace ventarix::edocs
