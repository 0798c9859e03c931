#include "Support/FailOnWarning.h"

#include <QApplication>
#include <QStyleFactory>

#include <gmock/gmock.h>

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    const QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    qInstallMessageHandler(tolvar::test::failOnWarning);
    return RUN_ALL_TESTS();
}
