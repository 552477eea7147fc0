#include "sim/commands.h"

#include <algorithm>
#include <array>
#include <optional>

namespace sim {

namespace {

constexpr std::size_t AddressDigits = 4;
constexpr std::size_t CodeAddressDigits = 5;
constexpr std::size_t CountDigits = 4;
constexpr int CodeSize = 32768;
constexpr std::string_view Done = "ok";

struct Request {
    int address = 0;
    int count = 0;
    std::string_view data;
};

// The identification code reaches the unit as four writes to ESTERNA of these very shapes. The unit takes them as its
// identity, which it keeps at 4080 in an order of its own, and leaves the cells of the map and its tables alone.
struct IdentityWrite {
    int address;
    int count;
    std::array<int, 3> home;
};
constexpr auto IdentityWrites = std::to_array<IdentityWrite>({
    {46, 2, {4081, 4085, 0}},
    {182, 3, {4082, 4083, 4084}},
    {250, 2, {4086, 4087, 0}},
    {319, 1, {4080, 0, 0}},
});

char LowerCase(char letter) {
    return static_cast<char>(letter - 'A' + 'a');
}

std::optional<Request> ReadRequest(std::string_view body, std::size_t addressDigits) {
    if (body.size() < addressDigits + CountDigits) return std::nullopt;
    const auto address = Decimal(body.substr(0, addressDigits));
    const auto count = Decimal(body.substr(addressDigits, CountDigits));
    if (!address || !count) return std::nullopt;
    return Request{*address, *count, body.substr(addressDigits + CountDigits)};
}

Execution Refuse(char letter, bool understood) {
    return {understood, true, RefusalOf(letter)};
}

Execution Reply(char letter, std::string_view text) {
    std::string reply(1, LowerCase(letter));
    reply += text;
    return {true, false, std::move(reply)};
}

Execution ReadCells(const AreaRow& area, const Request& request, const Memory& memory) {
    const auto bytes = memory.Read(area.area, request.address, request.count);
    return bytes ? Reply(area.read, ToHex(*bytes)) : Refuse(area.read, true);
}

bool TakeIdentity(const Request& request, const Bytes& data, Memory& memory) {
    const auto* const row = std::find_if(IdentityWrites.begin(), IdentityWrites.end(), [&](const IdentityWrite& w) {
        return w.address == request.address && w.count == request.count;
    });
    if (row == IdentityWrites.end()) return false;
    for (std::size_t i = 0; i < data.size(); ++i) memory.Poke(Area::Interna, row->home[i], {data[i]});
    return true;
}

Execution WriteCells(const AreaRow& area, const Request& request, const Bytes& data, Memory& memory) {
    if (area.area == Area::Esterna && TakeIdentity(request, data, memory)) return Reply(area.write, Done);
    return memory.Write(area.area, request.address, data) ? Reply(area.write, Done) : Refuse(area.write, true);
}

Execution OnCells(const AreaRow& area, std::string_view command, Memory& memory) {
    const char letter = command.front();
    const auto request = ReadRequest(command.substr(1), AddressDigits);
    if (!request) return Refuse(letter, false);
    if (letter == area.read) {
        return request->data.empty() ? ReadCells(area, *request, memory) : Refuse(letter, false);
    }
    const auto data = FromHex(request->data);
    if (!data || static_cast<int>(data->size()) != request->count) return Refuse(letter, false);
    return WriteCells(area, *request, *data, memory);
}

// The code area holds the version text and, as far as anybody may read it, nothing else.
Execution ReadCode(std::string_view command, const CodeArea& code) {
    const char letter = command.front();
    const auto request = ReadRequest(command.substr(1), CodeAddressDigits);
    if (!request || !request->data.empty()) return Refuse(letter, false);
    const int offset = request->address - CodeAddress;
    if (offset < 0 || request->count < 1 || request->count > CodeSize - offset) return Refuse(letter, true);
    constexpr int LongestRead = 250;
    if (request->count > LongestRead) return Refuse(letter, true);
    Bytes bytes(static_cast<std::size_t>(request->count), std::uint8_t{ErasedByte});
    for (int i = 0; i < request->count && offset + i < VersionLength; ++i) {
        bytes[static_cast<std::size_t>(i)] =
            static_cast<std::uint8_t>(code.version[static_cast<std::size_t>(offset + i)]);
    }
    return Reply(letter, ToHex(bytes));
}

// The loader: it takes a start and every line of a program, and keeps none of it.
Execution OnLoader(std::string_view command) {
    const std::string_view text = command.substr(1);
    if (text == "I") return Reply('P', "i");
    const bool line = text.size() >= 2 && text[0] == 'S' && (text[1] == '1' || text[1] == '9');
    return line ? Reply('P', "o") : Execution{};
}

}  // namespace

std::string RefusalOf(char letter) {
    return std::string(1, LowerCase(letter)) + "no";
}

Execution Execute(std::string_view command, Memory& memory, const CodeArea& code) {
    if (command.empty()) return {};
    const char letter = command.front();
    if (letter == 'X') return ReadCode(command, code);
    if (letter == 'P') return OnLoader(command);
    const AreaRow* const area = FindArea(letter);
    return area == nullptr ? Execution{} : OnCells(*area, command, memory);
}

}  // namespace sim
