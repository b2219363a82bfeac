// "veskel-cli check-update": whether there is a newer version of the program.
#pragma once

#include "platform/http_client.h"
#include "update/update_check.h"

namespace cli {

/// Asks for the list of versions and prints what came of it. Returns the exit code.
int checkUpdate(platform::HttpClient& client, const update::CheckRequest& request);

}  // namespace cli
