#include <QDir>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quernstoke {
namespace {

using testing::HasSubstr;

// The program itself, on a screen that nobody sees, with its message boxes pressed away.
class ProgramTest : public testing::Test {
 protected:
  static constexpr int patience = 60000;

  // Returns what its message boxes said, once it has ended by itself.
  std::string run(const QString& home, const QStringList& arguments = {}) {
    QProcess program;
    start(program, home, arguments);
    const bool ended = program.waitForFinished(patience);
    if (!ended) program.kill();
    EXPECT_TRUE(ended);
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    status = program.exitCode();
    return program.readAllStandardError().toStdString();
  }
  static void start(QProcess& program, const QString& home, const QStringList& arguments = {}) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QUERNSTOKE_HOME", home);
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    environment.insert("QT_PLUGIN_PATH", BOX_PRESSER_PATH);
    environment.insert("QT_QPA_GENERIC_PLUGINS", "boxPresser");
    program.setProcessEnvironment(environment);
    program.start(QUERNSTOKE_PATH, arguments);
  }
  static bool ignoresSignal(const QProcess& program, int number) {
    QFile facts("/proc/" + QString::number(program.processId()) + "/status");
    if (!facts.open(QIODevice::ReadOnly)) return false;
    const QRegularExpression ignored("SigIgn:\\s*([0-9a-f]+)");
    const QString bits = ignored.match(QString::fromUtf8(facts.readAll())).captured(1);
    return (bits.toULongLong(nullptr, 16) >> (number - 1) & 1) != 0;
  }

  QTemporaryDir directory;
  int status = -1;
};

// Without its log it opens no window, and must not wait for one to be closed.
TEST_F(ProgramTest, EndsIfItsHomeCannotBeWritten) {
  ASSERT_TRUE(QDir(directory.path()).mkdir("quernstoke.log"));
  EXPECT_THAT(run(directory.path()), HasSubstr("Procedure error in 'Main'."));
  EXPECT_EQ(status, 1);
}

// It would end the program in the midst of writing.
TEST_F(ProgramTest, OutlivesAFileThatMayNotBecomeSoLong) {
  QProcess program;
  start(program, directory.path());
  EXPECT_TRUE(QTest::qWaitFor([&] { return ignoresSignal(program, SIGXFSZ); }, patience));
  program.kill();
  EXPECT_TRUE(program.waitForFinished(patience));
}

TEST_F(ProgramTest, NamesAHomeThatIsNotThere) {
  const QString home = directory.filePath("nix");
  EXPECT_THAT(run(home), HasSubstr("directory '" + home.toStdString() + "': "));
  EXPECT_EQ(status, 1);
}

// All of them are the name of a profile; the toolkit would not even start with these.
TEST_F(ProgramTest, TakesNoOptionOfTheToolkit) {
  ASSERT_TRUE(QDir(directory.path()).mkdir("quernstoke.log"));
  EXPECT_THAT(run(directory.path(), {"-platform", "nowhere"}),
              HasSubstr("Procedure error in 'Main'."));
  EXPECT_EQ(status, 1);
}

}  // namespace
}  // namespace quernstoke
