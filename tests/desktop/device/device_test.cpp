// The windows in real time on a real pseudo-terminal, behind which the command `centralina` is the unit.
#include <gtest/gtest.h>

#include <QDir>
#include <QEventLoop>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "desktop/windows.h"
#include "platform/qt/qt_host.h"
#include "program/start.h"
#include "support/temporary_folder.h"

namespace {

constexpr int Limit = 20000;  // ms, far above what anything here takes; a slow machine must not fail
constexpr int UsualPort = 1;
constexpr int OverSpeed = 4;  // of MenuPunto

// The unit as a process, driven by lines.
class Unit {
  public:
    explicit Unit(const std::string& link) {
        unit_.start(QStringLiteral(CENTRALINA), {"--link", QString::fromStdString(link), "--commands"});
        if (!Line().startsWith("device ")) throw std::runtime_error("the unit has no device");
    }
    ~Unit() {
        unit_.closeWriteChannel();
        unit_.waitForFinished(Limit);
    }
    Unit(const Unit&) = delete;
    Unit& operator=(const Unit&) = delete;

    std::string Say(const char* line) {
        unit_.write(line);
        unit_.write("\n");
        return Line().toStdString();
    }

  private:
    QByteArray Line() {
        while (!unit_.canReadLine()) {
            if (!unit_.waitForReadyRead(Limit)) throw std::runtime_error("the unit does not answer");
        }
        return unit_.readLine();
    }

    QProcess unit_;
};

// The whole program on the real machine, its unit on a device of its own.
struct Garage {
    Garage() : unit(Link()), program(machine.Get(), MakeOptions()), windows(program, desktop::LightTheme()) {
        machine.after.Set([this] { Follow(); });
    }
    ~Garage() {
        machine.after.Set({});
        QDir::setCurrent(home);  // the program works in its own folder
    }
    Garage(const Garage&) = delete;
    Garage& operator=(const Garage&) = delete;

    std::string Link() const { return (folder.Path() / "tty").string(); }
    shell::Options MakeOptions() const {
        shell::Options options;
        options.folder = folder.Path() / "program";
        options.shipped = MARLOVENT_DATA;
        options.ports = {{UsualPort, Link()}};
        return options;
    }
    // Lets events come until the condition holds, which is looked at after each; false at the limit.
    bool WaitFor(std::function<bool()> holds) {
        QTimer::singleShot(Limit, &loop, [this] { loop.exit(1); });
        wanted = std::move(holds);
        const bool held = wanted() || loop.exec() == 0;
        wanted = nullptr;
        return held;
    }
    void Follow() {
        windows.Sync();
        if (wanted && wanted()) loop.exit(0);
    }
    bool Idle() const { return program.link.state.StatoCmd == eculink::Idle; }
    template <class Widget>
    Widget& Of(const char* name) {
        auto* widget = windows.Of(program.tuning.messaP)->findChild<Widget*>(QString::fromLatin1(name));
        if (widget == nullptr) throw std::runtime_error(std::string("no widget ") + name);
        return *widget;
    }
    void OpenOverSpeed() {
        windows.Main().Menus().Of(shell::MenuId::MenuPunto).actions().at(OverSpeed)->trigger();
        ASSERT_TRUE(program.tuning.messaP.IsOpen());
        ASSERT_TRUE(WaitFor([this] { return Idle(); }));
    }

    const QString home = QDir::currentPath();
    const support::TemporaryFolder folder;
    Unit unit;
    platform::qt::QtHost machine;
    program::Program program;
    desktop::Windows windows;
    QEventLoop loop;
    std::function<bool()> wanted;
};

TEST(Device, AFigureIsChangedByKeysStoredAndReadBack) {
    Garage garage;
    program::Start(garage.program);
    garage.windows.Sync();
    ASSERT_TRUE(garage.WaitFor([&] { return garage.program.link.state.FlussoAttivo == shell::True; }));

    garage.OpenOverSpeed();
    desktop::Dialog& window = *garage.windows.Of(garage.program.tuning.messaP);
    auto& figure = garage.Of<QLineEdit>("ValFG(0)");
    ASSERT_EQ(figure.text(), "6200");
    EXPECT_EQ(window.focusWidget(), &figure) << "the hand stands on the first value";
    figure.selectAll();
    QTest::keyClicks(&figure, "6000");
    QTest::keyClick(&figure, Qt::Key_Return);
    QTest::keyClick(&garage.Of<QPushButton>("InMemor"), Qt::Key_Space);
    EXPECT_FALSE(garage.Idle());
    ASSERT_TRUE(garage.WaitFor([&] { return garage.Idle(); }));
    EXPECT_EQ(garage.Of<QLineEdit>("FGDef(0)").text(), "6000");
    for (const char* cells : {"read O 3150 2", "read R 39 2"})
        EXPECT_NE(garage.unit.Say(cells).find("1770"), std::string::npos) << cells;

    QTest::keyClick(&figure, Qt::Key_Escape);
    ASSERT_TRUE(garage.WaitFor([&] { return !garage.program.tuning.messaP.IsOpen() && garage.Idle(); }));
    garage.OpenOverSpeed();
    EXPECT_EQ(figure.text(), "6000") << "read from the unit again";
    EXPECT_TRUE(window.isVisible());
}

}  // namespace
