#include "frame/run_mode.h"
#include "frame/window/start.h"
#include "shell/window/appearance.h"
#include "shell/window/application.h"
#include "shell/window/message_prompt.h"

int main(int argc, char** argv)
{
    Application application(argc, argv);
    SetAppearance();
    MessagePrompt prompt;
    SystemClock clock;
    const auto program = Main(QCoreApplication::applicationDirPath(), prompt, clock, kModuleRunMode);
    application.Serve(program.get());
    const int exitCode = program ? Application::exec() : 1;
    application.Serve(nullptr);
    return exitCode;
}
