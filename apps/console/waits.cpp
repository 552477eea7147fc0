#include "console/waits.h"

#include "pages/stack.h"
#include "program/program.h"
#include "program/variables.h"

namespace console {

namespace {

constexpr std::int64_t MicrosPerMilli = 1000;
constexpr long long LongestWait = 1LL << 31;  // ms, three weeks and a half

std::int64_t Now(const Context& context) {
    return context.program.shell.host.clock.ElapsedMicros();
}

// Starts the wait; the answer given now counts only when the time is none.
Json Start(Context& context, const std::string& milliseconds, std::function<bool()> holds) {
    const auto ms = WholeNumber(milliseconds, LongestWait);
    if (!ms || *ms < 0) return Failure("\"" + milliseconds + "\" is no number of milliseconds.");
    const std::int64_t from = Now(context);
    context.wait = Wait{from, from + *ms * MicrosPerMilli, std::move(holds)};
    return {};
}

Json WaitForPage(Context& context, const Words& words) {
    const pages::Page* page = context.program.shell.stack.Find(words[1]);
    if (page == nullptr) return Failure("There is no page " + words[1] + ".");
    const bool open = words[2] == "open";
    if (!open && words[2] != "closed") return Failure("A page is open or closed, not \"" + words[2] + "\".");
    return Start(context, words[3], [page, open] { return page->IsOpen() == open; });
}

Json WaitForVariable(Context& context, const Words& words) {
    const program::Variable* variable = program::FindVariable(words[0]);
    if (variable == nullptr) return Failure("There is no state variable " + words[0] + ".");
    program::VariableValue wanted = words[1];
    if (std::holds_alternative<std::int64_t>(variable->get(context.program))) {
        const auto number = WholeNumber(words[1], std::numeric_limits<long long>::max());
        if (!number) return Failure(words[0] + " is a number, and \"" + words[1] + "\" is none.");
        wanted = std::int64_t{*number};
    }
    return Start(context, words[2], [&program = context.program, variable, wanted = std::move(wanted)] {
        return variable->get(program) == wanted;
    });
}

}  // namespace

Json RunFor(Context& context, const Words& arguments) {
    return Start(context, arguments[0], {});
}

Json WaitFor(Context& context, const Words& arguments) {
    constexpr std::size_t PageForm = 4;
    if (arguments.size() == PageForm && arguments[0] == "page") return WaitForPage(context, arguments);
    if (arguments.size() == PageForm || arguments[0] == "page")
        return Failure("wait takes NAME VALUE MS, or page PAGE open|closed MS.");
    return WaitForVariable(context, arguments);
}

std::optional<Json> Outcome(const Wait& wait, std::int64_t nowMicros, bool ended) {
    const bool over = nowMicros >= wait.until;
    const bool met = wait.holds ? wait.holds() : over;
    if (!met && !over && !ended) return std::nullopt;
    Json answer = met ? Done() : Failure(ended ? "The program has ended." : "The time is over.");
    answer["ms"] = (nowMicros - wait.from) / MicrosPerMilli;
    return answer;
}

}  // namespace console
