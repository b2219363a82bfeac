// The server's side of a TLS handshake, for a server that cannot be trusted.
#pragma once

#include "support/raw_server.h"

namespace support {

/// Shows a certificate that it has signed itself, valid for 127.0.0.1 and an hour. Returns when the client is
/// gone. A client that trusts the certificate gets no answer.
void shakeHandsSelfSigned(RawConnection& connection);

}  // namespace support
