#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "platform/text.h"

namespace desktop {

// The core's texts are in code page 1252; windows want Unicode.
inline QString Words(std::string_view text1252) {
    return QString::fromStdString(platform::ToUtf8(text1252));
}
inline std::string ToCore(const QString& text) {
    return platform::FromUtf8(text.toStdString());
}

// A caption with its key behind it, as a hint: "Salva  F1".
inline QString WithKey(const QString& caption, std::string_view key) {
    if (key.empty()) return caption;
    return caption + QStringLiteral("  ") + QString::fromUtf8(key.data(), static_cast<qsizetype>(key.size()));
}

}  // namespace desktop
