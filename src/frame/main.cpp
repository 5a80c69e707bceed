#include "frame/appearance.h"
#include "frame/message_prompt.h"
#include "frame/run_mode.h"
#include "frame/start.h"

#include <QApplication>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    SetAppearance();
    MessagePrompt prompt;
    SystemClock clock;
    const auto program = Main(QCoreApplication::applicationDirPath(), prompt, clock, kModuleRunMode);
    return program ? QApplication::exec() : 1;
}
