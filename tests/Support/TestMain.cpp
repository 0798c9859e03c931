#include <QCoreApplication>
#include <QString>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

/// A warning that no test expected is a failure of the test it appears in.
void failOnWarning(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtWarningMsg || type == QtCriticalMsg)
        ADD_FAILURE() << "unexpected log line: " << message.toStdString();
    else if (type == QtFatalMsg)
        fprintf(stderr, "%s\n", qPrintable(message));
}

} // namespace

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    const QCoreApplication application(argc, argv);
    qInstallMessageHandler(failOnWarning);
    return RUN_ALL_TESTS();
}
