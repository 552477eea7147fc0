#include "console/interpreter.h"

#include <exception>

#include "console/waits.h"
#include "platform/text.h"
#include "program/program.h"

namespace console {

namespace {

Json Usage(const Command& command) {
    const std::string usage =
        std::string(command.name) + (command.usage.empty() ? "" : " ") + std::string(command.usage);
    return Failure("The command is: " + usage);
}

Json Run(Context& context, std::string_view line) {
    const FirstWord first = SplitFirst(line);
    const Command* command = FindCommand(first.word);
    if (command == nullptr) return Failure("There is no command " + std::string(first.word) + ".");
    Words arguments;
    if (command->wholeLine) {
        if (!first.rest.empty()) arguments.emplace_back(first.rest);
    } else {
        std::optional<Words> words = SplitWords(first.rest);
        if (!words) return Failure("A quote is not closed, or a blank is missing behind it.");
        arguments = std::move(*words);
    }
    if (arguments.size() < command->least || arguments.size() > command->most) return Usage(*command);
    return command->run(context, arguments);
}

// Whatever goes wrong inside a command is the answer to it: the console goes on.
Json RunSafely(Context& context, std::string_view line) {
    try {
        return Run(context, line);
    } catch (const std::exception& error) {
        return Failure(error.what());
    }
}

}  // namespace

std::optional<std::string> Interpreter::Do(std::string_view line) {
    const std::string_view trimmed = Trimmed(line);
    if (trimmed.empty() || line.front() == '#') return std::nullopt;
    const Json answer = RunSafely(context_, platform::FromUtf8(trimmed));
    if (context_.wait) return Poll();
    return OnOneLine(answer);
}

std::optional<std::string> Interpreter::Poll() {
    if (!context_.wait) return std::nullopt;
    const shell::Shell& shell = context_.program.shell;
    const std::optional<Json> answer = Outcome(*context_.wait, shell.host.clock.ElapsedMicros(), shell.state.ended);
    if (!answer) return std::nullopt;
    context_.wait.reset();
    return OnOneLine(*answer);
}

bool Interpreter::Finished() const {
    return context_.quit || context_.program.shell.state.ended;
}

}  // namespace console
