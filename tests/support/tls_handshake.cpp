#include "support/tls_handshake.h"

#include <memory>
#include <string>

#include <openssl/ec.h>
#include <openssl/evp.h>
#include <openssl/ssl.h>
#include <openssl/x509.h>

namespace support {

namespace {

template <typename T>
using Owned = std::unique_ptr<T, void (*)(T*)>;

Owned<X509> selfSigned(EVP_PKEY* key) {
  constexpr long kSeconds = 3600;
  Owned<X509> certificate(X509_new(), X509_free);
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

}  // namespace

void shakeHandsSelfSigned(RawConnection& connection) {
  const Owned<EVP_PKEY> key(EVP_EC_gen("P-256"), EVP_PKEY_free);
  const Owned<X509> certificate = selfSigned(key.get());
  const Owned<SSL_CTX> context(SSL_CTX_new(TLS_server_method()), SSL_CTX_free);
  SSL_CTX_use_certificate(context.get(), certificate.get());
  SSL_CTX_use_PrivateKey(context.get(), key.get());
  const Owned<SSL> session(SSL_new(context.get()), SSL_free);
  BIO* incoming = BIO_new(BIO_s_mem());
  BIO* outgoing = BIO_new(BIO_s_mem());
  SSL_set_bio(session.get(), incoming, outgoing);  // which owns them from here
  for (std::string bytes = connection.receive(); !bytes.empty(); bytes = connection.receive()) {
    BIO_write(incoming, bytes.data(), static_cast<int>(bytes.size()));
    SSL_accept(session.get());
    std::string reply(BIO_ctrl_pending(outgoing), '\0');
    BIO_read(outgoing, reply.data(), static_cast<int>(reply.size()));
    if (!connection.send(reply)) return;
  }
}

}  // namespace support
