#pragma once

#include <QKeyEvent>
#include <string>

namespace desktop {

// A key as the pages name it: "F1", "Esc", "Enter", "Ctrl+Alt+M"; empty for a modifier alone.
std::string KeyName(const QKeyEvent& event);

// A key that asks for something rather than writing a character.
bool IsCommand(const QKeyEvent& event);

}  // namespace desktop
