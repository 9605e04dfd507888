// tvx-cli config: what the program reads at its start.

#include <string>
#include <vector>

#include "cli/command.h"
#include "cli/command_line.h"
#include "cli/host.h"
#include "cli/json.h"
#include "cli/output.h"
#include "cli/tool_text.h"
#include "settings/user_keys.h"

namespace tvx {

int RunConfigShow(const Call& call) {
  CommandLine line(call, {"프로그램을 시작할 때 읽은 설정을 출력합니다.",
                          "Prints the configuration as read at the start of the program."});
  line.Parse();

  Host host(call);
  const Configuration& configuration = host.app.configuration;
  // Keys 1 to 12; an empty one among them is a key not set.
  const auto firstKey = host.app.UserKeys.begin() + 1;
  const std::vector<std::string> keys(firstKey, firstKey + kLastUserKey);
  Print(JsonText({{"EnvDir", configuration.EnvDir},
                  {"WorkDir", configuration.WorkDir},
                  {"AFADir", configuration.AFADir},
                  {"Editor", configuration.Editor},
                  {"ExtensionList", ListJson(host.app.ExtensionList)},
                  {"DirectoryList", ListJson(host.app.DirectoryList)},
                  {"UserKeys", keys}}));
  return 0;
}

}  // namespace tvx
