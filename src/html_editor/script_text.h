// Whether a document holds what another program might run.
#pragma once

#include <string_view>

namespace html_editor {

/// True with a "<script", an "on..." attribute or a target that begins with "javascript:", in any case and
/// disguise that browsers see through. Looks at the text and not at a tree, since programs differ in how they
/// read broken markup; when in doubt the answer is yes.
bool holdsScriptText(std::string_view document);

}  // namespace html_editor
