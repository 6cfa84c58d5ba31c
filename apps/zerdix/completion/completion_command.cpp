// SPDX-License-Identifier: MIT
// zerdix completion: a script that lets a shell complete the command line.

#include <cstdio>
#include <memory>

#include "arguments/commands.h"
#include "completion/scripts.h"

namespace zerdix::app {

void add_completion_command(cli::command app) {
    auto shell = std::make_shared<std::string>();
    cli::command command =
        app.add_command("completion", "Print a script for completion in bash, zsh or fish");
    command.add_argument("SHELL", *shell, "bash, zsh or fish").one_of({"bash", "zsh", "fish"});
    command.footer("Example: source <(zerdix completion bash)");
    command.callback([app, shell] {
        const command_shape program = shape_of(app);
        const std::string script = *shell == "bash"  ? bash_script(program)
                                   : *shell == "zsh" ? zsh_script(program)
                                                     : fish_script(program);
        std::fputs(script.c_str(), stdout);
    });
}

} // namespace zerdix::app
