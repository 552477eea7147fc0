// Renders the windows of the program, filled, into PNG files: the main window waiting, live and lost, and every page
// that can be opened, on virtual time with the simulated unit.
//   screenshots LANGUAGE THEME WIDTHxHEIGHT FOLDER
#include <QApplication>
#include <QDir>
#include <QPainter>
#include <iostream>
#include <stdexcept>

#include "desktop/layout_rules.h"
#include "desktop/windows.h"
#include "platform/ini_file.h"
#include "shell/menus.h"
#include "support/simulated.h"

namespace {

constexpr std::int64_t Patience = 60000;  // ms of virtual time
constexpr std::int64_t Settle = 3000;

// What is to be seen, from the command line.
struct Wish {
    std::string language;
    std::string theme;
    QSize size;
    QDir folder;
};

Wish ReadWish(const QStringList& words) {
    constexpr int Expected = 5;
    if (words.size() != Expected) throw std::runtime_error("usage: screenshots LANGUAGE THEME WIDTHxHEIGHT FOLDER");
    const QStringList sides = words[3].split(QLatin1Char('x'));
    if (sides.size() != 2) throw std::runtime_error("a size is WIDTHxHEIGHT");
    return {words[1].toStdString(), words[2].toStdString(), QSize(sides[0].toInt(), sides[1].toInt()), QDir(words[4])};
}

// The program in a folder of its own, in the language and look that were asked for.
class Studio {
  public:
    explicit Studio(const Wish& wish) : wish_(wish) {
        platform::IniText settings{std::string()};
        settings.Set("IMPOSTAZIONI", "Lingua", wish.language);
        set_.files.Write(set_.folder.Path() / "MARLO.INI", settings.Content());
        for (const std::string& name : set_.files.List(MARLOVENT_DATA, ".LNG"))
            set_.files.Copy(std::filesystem::path(MARLOVENT_DATA) / name, set_.folder.Path() / name);
        windows_ = std::make_unique<desktop::Windows>(set_.program, theme_);
        windows_->Main().resize(wish.size);
    }

    void Shoot() {
        ShootLink();
        for (const Shot& shot : Shots()) ShootPage(shot);
        ShootMenu();
    }

  private:
    // A page by its menu entry; `name` of the file.
    struct Shot {
        std::string name;
        shell::MenuId menu;
        int index;
    };

    program::Program& Program() { return set_.program; }

    void Pass(std::int64_t milliseconds) {
        set_.Run(milliseconds);
        windows_->Sync();
        // Windows settle in turns: what is inside tells what is around it.
        constexpr int Turns = 4;
        for (int turn = 0; turn < Turns; ++turn) QCoreApplication::sendPostedEvents();
    }

    // Every entry whose page exists; the name tells the entries of one page apart.
    std::vector<Shot> Shots() {
        std::vector<Shot> shots;
        for (const shell::EntryRow& row : shell::Entries()) {
            if (row.target != shell::Target::Page || Program().shell.commands.Find(row.name) == nullptr) continue;
            if (!Program().shell.main.Item(row.menu, row.index).visible) continue;
            const std::string suffix = row.subtitle ? "-" + std::to_string(row.argument) : std::string();
            shots.push_back({std::string(row.name) + suffix, row.menu, row.index});
        }
        return shots;
    }

    // The main window in the three states of the link, and the read of a unit between them.
    void ShootLink() {
        set_.Sim("stream off");
        set_.Start();
        Pass(Settle);
        Save("main-waiting", windows_->Main());
        set_.Sim("stream on");
        set_.RunUntil([this] { return Program().memory.leggoIn.Avanzamento.Text() == "50"; }, Patience);
        Pass(0);
        SaveOpen("LeggoIn");
        set_.RunUntil([this] { return Program().link.state.FlussoAttivo == shell::True; }, Patience);
        Pass(Settle);
        Save("main-live", windows_->Main());
        set_.Sim("stream off");
        Pass(2 * Settle);
        Save("main-lost", windows_->Main());
        set_.Sim("stream on");
        set_.RunUntil([this] { return Program().link.state.FlussoAttivo == shell::True; }, Patience);
        Pass(Settle);
    }

    void ShootPage(const Shot& shot) {
        if (!shell::ChooseMenu(Program().shell, shot.menu, shot.index).ok) return;
        windows_->Sync();
        set_.RunUntil([this] { return Program().link.state.StatoCmd == eculink::Idle; }, Patience);
        Pass(Settle);
        SaveOpen(shot.name);
        ShootTables(shot.name);
        ShootBaseMap(shot.name);
        ShootEdits(shot.name);
        while (Program().shell.stack.Open().size() > 2)
            Program().shell.stack.ClosePage(*Program().shell.stack.Open().back());
        Pass(Settle);
    }

    // The tables of the page, behind the buttons that have a twin for the initial values.
    void ShootTables(const std::string& name) {
        pages::Page& page = *Program().shell.stack.Open().back();
        for (pages::Control* control : page.Controls()) {
            const bool opens = control->GetKind() == pages::Kind::Button && control->Visible() &&
                               page.Find(control->Name() + std::string(desktop::TwinEnding)) != nullptr;
            if (!opens) continue;
            Program().shell.stack.Press(*control);
            Pass(Settle);
            SaveOpen(name + "-" + control->Name());
            ShootCells(page, name + "-" + control->Name());
            Program().shell.stack.Press(*control);
            Pass(0);
        }
    }

    // The first cells of the last table on the screen changed, then the first of them refused; an empty text brings its
    // figure back.
    void ShootCells(const pages::Page& page, const std::string& name) {
        pages::Control* table = nullptr;
        for (pages::Control* control : page.Controls()) {
            if (control->GetKind() == pages::Kind::Grid && control->Visible() && control->onCell) table = control;
        }
        if (table == nullptr) return;
        ChangeCells(*table);
        SaveOpen(name + "-changed");
        const auto type = [&](const char* text) {
            Program().shell.stack.EditCell(*table, table->HeaderRows(), table->HeaderColumns(), text);
        };
        type("9999999");
        Pass(Settle);
        SaveOpen(name + "-refused");
        type("");
    }

    // Two cells, one below the other, get the next figure.
    void ChangeCells(pages::Control& table) {
        constexpr int Changed = 2;
        const int column = table.HeaderColumns();
        for (int row = table.HeaderRows(); row < table.HeaderRows() + Changed; ++row) {
            const auto& cells = table.GetCells();
            if (static_cast<std::size_t>(row) >= cells.size()) break;
            const int figure =
                std::atoi(cells[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)].c_str());
            Program().shell.stack.EditCell(table, row, column, std::to_string(figure + 1));
        }
        Pass(Settle);
    }

    // The base map while it is edited: changed cells, then a breakpoint that is refused.
    void ShootBaseMap(const std::string& name) {
        pages::Page& page = *Program().shell.stack.Open().back();
        pages::PageStack& stack = Program().shell.stack;
        if (&page != &Program().tuning.messaL1) return;
        stack.Press(Program().tuning.messaL1.Modifica);
        ChangeCells(Program().tuning.messaL1.LambdaRicco);
        SaveOpen(name + "-changed");
        stack.Edit(*page.Find("Giri(15)"), "99999");
        stack.Key(page, "Enter");
        Pass(Settle);
        SaveOpen(name + "-refused");
    }

    // The first figure of the page changed, then the same refused.
    void ShootEdits(const std::string& name) {
        pages::PageStack& stack = Program().shell.stack;
        pages::Page& page = *stack.Open().back();
        pages::Control* figure = page.Focus();
        const bool number = figure != nullptr && figure->GetKind() == pages::Kind::Field &&
                            figure->filter == pages::KeyFilter::Digits && figure->beside.initial != nullptr;
        if (!number) return;
        for (const auto& [ending, text] : {std::pair{"-changed", ""}, std::pair{"-refused", "9999999"}}) {
            const bool typed = *text != '\0';
            const int next = std::atoi(figure->Text().c_str()) + 1;
            stack.Edit(*figure, typed ? text : std::to_string(next));
            stack.Key(page, "Enter");
            Pass(Settle);
            SaveOpen(name + ending);
        }
    }

    // A question and the box of the system, and a menu.
    void ShootMenu() {
        shell::MostraMessaggio(Program().shell, shell::UsualTitle(Program().shell), set_.Text("ERRORE_20", "ERRORI"),
                               shell::StyleQuestion, {});
        Pass(0);
        SaveOpen("Messaggio");
        Program().shell.stack.ClosePage(Program().shell.messaggio);
        Program().shell.systemMessage.Show(shell::UsualTitle(Program().shell), set_.Text("ERRORE_2", "ERRORI"));
        Pass(0);
        SaveOpen("SystemMessage");
        Program().shell.stack.ClosePage(Program().shell.systemMessage);
        Pass(0);
        QMenu& menu = windows_->Main().Menus().Of(shell::MenuId::MenuPunto);
        menu.ensurePolished();
        menu.resize(menu.sizeHint());
        Save("menu", menu);
    }

    void SaveOpen(const std::string& name) {
        const pages::Page& page = *Program().shell.stack.Open().back();
        QWidget* window = windows_->Of(page);
        if (window == nullptr) throw std::runtime_error(name + " has no window");
        Save(name, *window);
        SaveTogether(name, *window);
    }
    void Save(const std::string& name, QWidget& window) { Write(name, window.grab()); }
    // The page where it stands on the main window.
    void SaveTogether(const std::string& name, QWidget& window) {
        QPixmap whole = windows_->Main().grab();
        QPainter painter(&whole);
        const QPoint at = windows_->Main().mapFromGlobal(window.mapToGlobal(QPoint(0, 0)));
        painter.drawPixmap(at, window.grab());
        painter.setPen(theme_.quiet);
        painter.drawRect(QRect(at, window.size()).adjusted(-1, -1, 0, 0));
        painter.end();
        Write(name + "-on-main", whole);
    }
    void Write(const std::string& name, const QPixmap& picture) {
        const QString file = wish_.folder.filePath(QString::fromStdString(name) + QStringLiteral(".png"));
        if (!picture.save(file)) throw std::runtime_error("cannot write " + file.toStdString());
    }

    const Wish& wish_;
    const desktop::Theme& theme_ = desktop::ChooseTheme(wish_.theme, {});
    support::Simulated set_;
    std::unique_ptr<desktop::Windows> windows_;
};

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    try {
        const Wish wish = ReadWish(QCoreApplication::arguments());
        if (!wish.folder.mkpath(QStringLiteral("."))) throw std::runtime_error("the folder cannot be made");
        desktop::ApplyTheme(desktop::ChooseTheme(wish.theme, {}));
        Studio(wish).Shoot();
    } catch (const std::exception& fault) {
        std::cerr << "screenshots: " << fault.what() << '\n';
        return 1;
    }
    return 0;
}
