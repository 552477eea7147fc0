#include "link/frames/build.h"

#include "link/frames/numbers.h"

namespace frames {

namespace {

constexpr std::size_t FieldWidth = 4;
constexpr std::size_t PayloadStart = 2;
constexpr std::size_t DigitsPerWord = 4;

std::string Field(int number) {
    return RightAlign("0000" + Format0(number), FieldWidth);
}

}  // namespace

std::string Frame(std::string_view body) {
    std::string out(1, Stx);
    out += body;
    out += Etx;
    return out;
}

std::string ReadFrame(char letter, int address, int count) {
    return Frame(std::string(1, letter) + Field(address) + Field(count));
}

std::string WriteFrame(char letter, int address, int count, std::string_view data) {
    return Frame(std::string(1, letter) + Field(address) + Field(count) + std::string(data));
}

std::string IdentityFrame() {
    return Frame("X327680010");
}

std::string_view FirstFrame(std::string_view chain) {
    const std::size_t end = chain.find(Etx);
    return end == std::string_view::npos ? chain : chain.substr(0, end + 1);
}

std::string PareggiaF(std::string_view data) {
    std::string out(data);
    while (out.size() % DigitsPerWord != 0) out += 'F';
    return out;
}

std::string_view Payload(std::string_view frame) {
    if (frame.size() < PayloadStart) return {};
    frame.remove_prefix(PayloadStart);
    return frame.substr(0, frame.find(Etx));
}

bool IsOk(std::string_view frame) {
    return frame.substr(0, 4).size() == 4 && frame.substr(PayloadStart, 2) == "ok";
}

}  // namespace frames
