#include "desktop/sound/player.h"
#include "desktop/theme.h"

#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM") && !qEnvironmentVariableIsSet("DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    sm::desktop::Sound_Player::Choose_Backend();
    QApplication application(argc, argv);
    sm::desktop::Settle_Application(application);
    return RUN_ALL_TESTS();
}
