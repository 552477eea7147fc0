#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

struct Options {
    std::string link;      // a symbolic link to the device; empty: none
    std::string scenario;  // a file; empty: the standard one
    std::uint32_t seed = 1;
    bool commands = false;  // scenario lines from standard input
    bool help = false;
    bool version = false;
    std::vector<std::string> lines;  // what the other options say, as scenario lines
};

// Reads the command line. With a text in `error` the options are not to be used.
Options ReadOptions(const std::vector<std::string>& arguments, std::string& error);

std::string HelpText();
