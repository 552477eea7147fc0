#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace shell {

// What a menu entry or a button asks for: a page or a command by name, its argument, and the title that a page gets.
struct Call {
    std::string name;
    int argument = 0;
    std::string title;
};

// The commands behind menus and toolbar. A room registers the command that opens its page when the program is
// assembled.
class Commands {
  public:
    using Run = std::function<void(const Call&)>;

    void Add(std::string name, Run run) { runs_[std::move(name)] = std::move(run); }
    // Null when no room has registered the name.
    const Run* Find(std::string_view name) const {
        const auto found = runs_.find(name);
        return found == runs_.end() ? nullptr : &found->second;
    }

  private:
    std::map<std::string, Run, std::less<>> runs_;
};

}  // namespace shell
