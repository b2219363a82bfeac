// Whether a document holds what another program might run. A scan writes nothing of the kind; a user may have
// typed it, and documents of earlier versions and of other programs may hold it.
#pragma once

#include <filesystem>
#include <set>
#include <string_view>

namespace sitemaps {

/// True with a "<script", an "on..." attribute or a target that begins with "javascript:", in any case and
/// disguise that browsers see through. Looks at the text and not at a tree, since programs differ in how they
/// read broken markup; when in doubt the answer is yes.
bool holdsScriptText(std::string_view document);

/// Documents that the user has let pass although they do, wherever that was asked.
using PassedScripts = std::set<std::filesystem::path>;

}  // namespace sitemaps
