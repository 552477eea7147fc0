// The program of the windows as a shell starts it.
#include <gtest/gtest.h>

#include <QProcess>

namespace {

constexpr int Limit = 20000;  // ms

// A toolkit that looked for the display first would end in its own way, without a status that a script knows.
TEST(CommandLine, WhatIsWrongWithItIsToldInOneLineAlsoWithoutADisplay) {
    for (const QStringList& arguments : {QStringList{"--nonsense"}, QStringList{"--simulate", "/missing.scn"}}) {
        QProcess program;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("no-such-platform"));
        program.setProcessEnvironment(environment);
        program.start(QStringLiteral(MARLOVENT), arguments);
        ASSERT_TRUE(program.waitForFinished(Limit));
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.exitCode(), 2);
        EXPECT_EQ(program.readAllStandardError().count('\n'), 1);
    }
}

}  // namespace
