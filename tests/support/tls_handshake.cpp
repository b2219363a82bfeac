#include "support/tls_handshake.h"

#include <memory>
#include <string>

#include <openssl/ec.h>
#include <openssl/evp.h>
#include <openssl/ssl.h>
#include <openssl/x509.h>

namespace support {

namespace {

template <auto Free>
struct Deleter {
  template <typename T>
  void operator()(T* object) const {
    Free(object);
  }
};
using Key = std::unique_ptr<EVP_PKEY, Deleter<EVP_PKEY_free>>;
using Certificate = std::unique_ptr<X509, Deleter<X509_free>>;
using Context = std::unique_ptr<SSL_CTX, Deleter<SSL_CTX_free>>;
using Session = std::unique_ptr<SSL, Deleter<SSL_free>>;

Certificate selfSigned(EVP_PKEY* key) {
  constexpr long kSeconds = 3600;
  Certificate certificate(X509_new());
  ASN1_INTEGER_set(X509_get_serialNumber(certificate.get()), 1);
  X509_gmtime_adj(X509_getm_notBefore(certificate.get()), 0);
  X509_gmtime_adj(X509_getm_notAfter(certificate.get()), kSeconds);
  X509_set_pubkey(certificate.get(), key);
  X509_NAME* name = X509_get_subject_name(certificate.get());
  X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC, reinterpret_cast<const unsigned char*>("127.0.0.1"),
                             -1, -1, 0);
  X509_set_issuer_name(certificate.get(), name);
  X509_sign(certificate.get(), key, EVP_sha256());
  return certificate;
}

/// Sends what the session has to say.
bool flush(BIO* outgoing, RawConnection& connection) {
  std::string bytes(BIO_ctrl_pending(outgoing), '\0');
  if (bytes.empty()) return true;
  BIO_read(outgoing, bytes.data(), static_cast<int>(bytes.size()));
  return connection.send(bytes);
}

}  // namespace

void shakeHandsSelfSigned(RawConnection& connection) {
  const Key key(EVP_EC_gen("P-256"));
  const Certificate certificate = selfSigned(key.get());
  const Context context(SSL_CTX_new(TLS_server_method()));
  SSL_CTX_use_certificate(context.get(), certificate.get());
  SSL_CTX_use_PrivateKey(context.get(), key.get());
  const Session session(SSL_new(context.get()));
  BIO* incoming = BIO_new(BIO_s_mem());
  BIO* outgoing = BIO_new(BIO_s_mem());
  SSL_set_bio(session.get(), incoming, outgoing);  // which owns them from here
  for (std::string bytes = connection.receive(); !bytes.empty(); bytes = connection.receive()) {
    BIO_write(incoming, bytes.data(), static_cast<int>(bytes.size()));
    SSL_accept(session.get());
    if (!flush(outgoing, connection)) return;
  }
}

}  // namespace support
