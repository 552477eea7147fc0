#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/files.h"
#include "platform/text.h"

// Files that never reach a disk: an input may ask for anything, and thousands of programs start in a minute.
class MemoryFiles : public platform::Files {
  public:
    using Path = platform::Path;

    std::optional<std::string> Read(const Path& file, std::size_t limit) override {
        const auto found = files_.find(Name(file));
        if (found == files_.end()) return std::nullopt;
        return found->second.substr(0, limit);
    }
    bool Write(const Path& file, std::string_view content) override {
        files_[Name(file)] = content;
        return true;
    }
    bool Append(const Path& file, std::string_view content) override {
        std::string& text = files_[Name(file)];
        if (text.size() + content.size() > DefaultLimit) return false;
        text += content;
        return true;
    }
    bool Remove(const Path& file) override {
        files_.erase(Name(file));
        return true;
    }
    bool Copy(const Path& from, const Path& to) override {
        const auto text = Read(from, DefaultLimit);
        return text && Write(to, *text);
    }
    bool Exists(const Path& file) override { return files_.contains(Name(file)); }
    std::optional<std::uint64_t> Size(const Path& file) override {
        const auto found = files_.find(Name(file));
        if (found == files_.end()) return std::nullopt;
        return found->second.size();
    }
    std::vector<std::string> List(const Path& folder, std::string_view extension) override {
        std::vector<std::string> names;
        for (const auto& [name, text] : files_) {
            const Path file(name);
            if (file.parent_path().string() != Name(folder)) continue;
            if (!platform::EqualsIgnoringCase(file.extension().string(), extension)) continue;
            names.push_back(file.filename().string());
        }
        return names;
    }
    bool MakeCurrent(const platform::Path&) override { return true; }
    bool MakeFolders(const Path& folder) override {
        folders_.insert(Name(folder));
        return true;
    }
    bool FolderExists(const Path& folder) override { return folders_.contains(Name(folder)); }

  private:
    // Found whatever the case of letters.
    static std::string Name(const Path& file) { return platform::UpperCase(file.lexically_normal().string()); }

    std::map<std::string, std::string> files_;
    std::set<std::string> folders_;
};
