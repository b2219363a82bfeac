// What a document's first line says of its kind.
#pragma once

#include <optional>
#include <string>

#include "web/html_tokens.h"

namespace web {

struct DocumentType {
  std::optional<std::string> name = {};
  std::optional<std::string> publicId = {};
  std::optional<std::string> systemId = {};
  bool quirks = false;  // so broken that browsers show the document as the oldest ones did
};

/// Reads a token of TokenKind::documentType.
DocumentType documentTypeOf(const Token& token);

}  // namespace web
