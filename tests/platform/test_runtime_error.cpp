// SPDX-License-Identifier: MIT
#include "platform/runtime_error.h"
#include "tests/support/failure.h"

#include <QtTest>

class TestRuntimeError : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void errorsBearTheClassicNumbersAndDescriptions_data();
    void errorsBearTheClassicNumbersAndDescriptions();
};

void TestRuntimeError::errorsBearTheClassicNumbersAndDescriptions_data()
{
    QTest::addColumn<ErrorNumber>("error");
    QTest::addColumn<QString>("text");
    const auto row = [](ErrorNumber error, const char *text) {
        QTest::newRow(text) << error << QString(text);
    };
    row(ErrorNumber::InvalidProcedureCall, "5 Invalid procedure call or argument");
    row(ErrorNumber::Overflow, "6 Overflow");
    row(ErrorNumber::SubscriptOutOfRange, "9 Subscript out of range");
    row(ErrorNumber::TypeMismatch, "13 Type mismatch");
    row(ErrorNumber::BadFileName, "52 Bad file name or number");
    row(ErrorNumber::FileNotFound, "53 File not found");
    row(ErrorNumber::FileAlreadyOpen, "55 File already open");
    row(ErrorNumber::DeviceIoError, "57 Device I/O error");
    row(ErrorNumber::DiskFull, "61 Disk full");
    row(ErrorNumber::InputPastEnd, "62 Input past end of file");
    row(ErrorNumber::DeviceUnavailable, "68 Device unavailable");
    row(ErrorNumber::PermissionDenied, "70 Permission denied");
    row(ErrorNumber::PathFileAccess, "75 Path/File access error");
    row(ErrorNumber::PathNotFound, "76 Path not found");
}

void TestRuntimeError::errorsBearTheClassicNumbersAndDescriptions()
{
    QFETCH(ErrorNumber, error);
    QTEST(failureOf([&] { throw RuntimeError(error); }), "text");
    QCOMPARE(QString(RuntimeError(error).what()), RuntimeError(error).description());
}

QTEST_APPLESS_MAIN(TestRuntimeError)
#include "test_runtime_error.moc"
