// Main of the tests that need widgets: an offscreen application with settings of its own, as tests
// run side by side; a warning from Qt is a failure.
#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <iostream>

namespace {

void FailOnWarning(QtMsgType type, const QMessageLogContext & /*context*/, const QString &message)
{
    // What the offscreen platform lacks says nothing about the library.
    if (message.startsWith(QStringLiteral("This plugin does not support"))) {
        return;
    }
    std::cerr << message.toStdString() << '\n';
    if (type == QtWarningMsg || type == QtCriticalMsg || type == QtFatalMsg) {
        ADD_FAILURE() << "unexpected warning: " << message.toStdString();
    }
}

/// Every test begins without settings.
class NoSettings : public testing::EmptyTestEventListener
{
    void OnTestStart(const testing::TestInfo & /*test*/) override { QSettings().clear(); }
};

} // namespace

int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("Korvane tests"));
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    testing::UnitTest::GetInstance()->listeners().Append(new NoSettings); // takes it over
    qInstallMessageHandler(FailOnWarning);
    return RUN_ALL_TESTS();
}
