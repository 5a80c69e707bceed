#include "frame/appearance.h"
#include "frame/application.h"
#include "frame/message_prompt.h"
#include "frame/run_mode.h"
#include "frame/start.h"

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
