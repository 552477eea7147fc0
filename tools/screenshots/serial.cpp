// Renders the program on a real serial device: the main window live, with the page of the serial line in front of it.
// What is on the device must be a unit, such as the command `centralina` offers.
//   serial_screenshot DEVICE LANGUAGE THEME WIDTHxHEIGHT FILE
#include <QApplication>
#include <QFileInfo>
#include <QPainter>
#include <QTimer>
#include <iostream>

#include "desktop/windows.h"
#include "platform/ini_file.h"
#include "platform/qt/qt_host.h"
#include "program/start.h"
#include "support/temporary_folder.h"

namespace {

constexpr int Expected = 6;      // words of the command line
constexpr int Patience = 60000;  // ms until the unit has been read
constexpr int Look = 100;        // ms between two looks
constexpr int Settle = 3000;     // ms of live frames before the picture
constexpr int SerialLine = 1;    // of MenuConf
constexpr int UsualPort = 1;

shell::Options OptionsFor(const platform::Path& folder, const QString& device) {
    shell::Options options;
    options.folder = folder;
    options.shipped = MARLOVENT_DATA;
    options.ports = {{UsualPort, device.toStdString()}};
    return options;
}

QPixmap Together(desktop::Windows& windows, const pages::Page& page, const desktop::Theme& theme) {
    QPixmap whole = windows.Main().grab();
    QWidget* window = windows.Of(page);
    if (window == nullptr) return whole;
    QPainter painter(&whole);
    const QPoint at = windows.Main().mapFromGlobal(window->mapToGlobal(QPoint(0, 0)));
    painter.drawPixmap(at, window->grab());
    painter.setPen(theme.quiet);
    painter.drawRect(QRect(at, window->size()).adjusted(-1, -1, 0, 0));
    return whole;
}

int Shoot(const QStringList& words) {
    const support::TemporaryFolder folder;
    platform::qt::QtHost machine;
    platform::WritePrivateProfileString(machine.files, "IMPOSTAZIONI", "Lingua", words[2].toStdString(),
                                        folder.Path() / "MARLO.INI");
    for (const std::string& name : machine.files.List(MARLOVENT_DATA, ".LNG"))
        machine.files.Copy(platform::Path(MARLOVENT_DATA) / name, folder.Path() / name);
    const QStringList sides = words[4].split(QLatin1Char('x'));
    const desktop::Theme& theme = desktop::ChooseTheme(words[3].toStdString(), {});
    desktop::ApplyTheme(theme);

    program::Program program(machine.Get(), OptionsFor(folder.Path(), words[1]));
    // The start goes to the folder of the program: the picture belongs where the caller stands.
    const QString file = QFileInfo(words[5]).absoluteFilePath();
    desktop::Windows windows(program, theme);
    windows.Main().resize(sides.value(0).toInt(), sides.value(1).toInt());
    program::Start(program);
    machine.after.Set([&] { windows.Sync(); });

    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
        if (program.link.state.FlussoAttivo != shell::True) return;
        look.stop();
        QTimer::singleShot(Settle, &look, [&] {
            shell::ChooseMenu(program.shell, shell::MenuId::MenuConf, SerialLine);
            windows.Sync();
            QTimer::singleShot(Look, &look, [&] {
                const bool saved = Together(windows, program.shell.confSer, theme).save(file);
                QCoreApplication::exit(saved ? 0 : 1);
            });
        });
    });
    look.start(Look);
    QTimer::singleShot(Patience, &look, [] {
        std::cerr << "serial_screenshot: no unit has been read\n";
        QCoreApplication::exit(1);
    });
    const int status = QApplication::exec();
    machine.after.Set({});
    return status;
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    if (words.size() == Expected) return Shoot(words);
    std::cerr << "usage: serial_screenshot DEVICE LANGUAGE THEME WIDTHxHEIGHT FILE\n";
    return 2;
}
