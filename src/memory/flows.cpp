#include "memory/flows.h"

#include <algorithm>

#include "link/frames/build.h"
#include "link/frames/numbers.h"
#include "link/transaction.h"
#include "memory/image.h"
#include "memory/image_cells.h"
#include "memory/memory.h"

namespace memory {

namespace {

using eculink::Link;
using eculink::TimeOut;

// Transaction states of the flows.
enum State_ {
    InspectorExternal = 70,
    InspectorInternal = 71,
    ConnectionExternal = 80,
    ConnectionInternal = 89,
    ArchiveInternal = 88,
    ArchiveExternal = 95,
    DateStampSent = 86,
    ProgrammingInternal = 93,
    ProgrammingExternal = 96,
    ProgrammingMarker = 98,
    ErasingInternal = 92,
    ErasingMarker = 94,
    ErasingExternal = 97,
};

// A read: where its two areas are asked for and where their lines go. Long frames hold two image lines.
struct ReadRow {
    Flow flow;
    int external;
    int internal;
    int chunk;
    const char* externalFile;
    const char* internalFile;
};

constexpr std::array<ReadRow, 3> Reads{{
    {Flow::Connection, ConnectionExternal, ConnectionInternal, 32, ExternalFile, InternalFile},
    {Flow::Inspector, InspectorExternal, InspectorInternal, 32, InspectorFile, InspectorFile},
    {Flow::Archive, ArchiveExternal, ArchiveInternal, 16, ArchiveWorkFile, ArchiveWorkFile},
}};

// A write: all or a part of ESTERNA, then INTERNA up to the cells that tell who the unit is, then the marker word, so
// that a write that breaks off leaves a blank unit.
struct WriteRow {
    Flow flow;
    int external;
    int internal;
    int marker;
    int externalBytes;
    bool erases;
};

constexpr std::array<WriteRow, 2> Writes{{
    {Flow::Programming, ProgrammingExternal, ProgrammingInternal, ProgrammingMarker, 512, false},
    {Flow::Erasing, ErasingExternal, ErasingInternal, ErasingMarker, AreaBytes, true},
}};

constexpr int WriteChunk = 16;
constexpr int InternalWritten = 944;  // 3072 to 4015, the marker counted
constexpr int FirstDataCell = 3074;   // behind the marker word
constexpr int FirstDataBytes = 14;
constexpr int MarkerBytes = 2;

const ReadRow& ReadOf(Flow flow) {
    return *std::find_if(Reads.begin(), Reads.end(), [flow](const ReadRow& row) { return row.flow == flow; });
}
const WriteRow& WriteOf(Flow flow) {
    return *std::find_if(Writes.begin(), Writes.end(), [flow](const WriteRow& row) { return row.flow == flow; });
}

void Tell(const std::function<void()>& handler) {
    if (handler) handler();
}

// Flows that a menu starts and that own the link for long.
bool TurnsMenusOff(Flow flow) {
    return flow == Flow::Archive || flow == Flow::Programming || flow == Flow::Erasing;
}

void MenusOff(Memory& memory, Flow flow) {
    if (TurnsMenusOff(flow)) shell::AbilitaComandi(memory.link.shell, shell::False);
}

// A blank unit has only the menus that need no programmed one.
void MenusBack(Memory& memory, Flow flow) {
    shell::Shell& shell = memory.link.shell;
    if (!TurnsMenusOff(flow)) return;
    shell::AbilitaComandi(shell, shell::True);
    if (shell.state.ImmagineProgrammata == shell::False) shell::SoloSenzaCentralina(shell);
}

void TellProgress(Memory& memory, Flow flow, int address) {
    if (EventsOf(memory, flow).progress) EventsOf(memory, flow).progress(address);
}

// Each frame of a flow has the whole time limit; the first one of an exchange also empties the port.
void Send(Memory& memory, int state, const std::string& frame) {
    Link& link = memory.link;
    if (link.state.StatoCmd == eculink::Idle) {
        eculink::StartTransaction(link, state, frame);
    } else {
        eculink::SendFrame(link, state, frame);
    }
}

void SendRead(Memory& memory, const ReadRow& row, bool internal) {
    auto& link = memory.link.state;
    const int count = std::min(row.chunk, link.ByteRestanti);
    link.ByteRestanti -= count;
    TellProgress(memory, row.flow, link.IndirizzoCorrente);
    Send(memory, internal ? row.internal : row.external,
         frames::ReadFrame(internal ? 'O' : 'L', link.IndirizzoCorrente, count));
}

void BeginArea(Memory& memory, const ReadRow& row, bool internal) {
    memory.link.state.IndirizzoCorrente = internal ? FirstInternal : 0;
    memory.link.state.ByteRestanti = AreaBytes;
    SendRead(memory, row, internal);
}

// A reply may hold any byte; one that ends a line in a file would move every cell behind it. What stands in its place
// is no digit, and reads as erased.
std::string WithoutLineEnds(std::string_view payload) {
    constexpr char NoDigit = '?';
    std::string text(payload);
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '\r' || c == '\n'; }, NoDigit);
    return text;
}

// Up to `chunk` bytes of a reply, one image line each 16; a short reply leaves its lines short.
bool AppendLines(Memory& memory, const ReadRow& row, bool internal, const std::string& frame) {
    const std::string payload = WithoutLineEnds(frames::Payload(frame));
    std::string lines;
    for (int line = 0; line < row.chunk / LineBytes; ++line) {
        const std::size_t at = static_cast<std::size_t>(line) * LineDigits;
        if (at < payload.size()) lines += payload.substr(at, LineDigits);
        lines += "\r\n";
    }
    shell::Shell& shell = memory.link.shell;
    return shell.host.files.Append(shell.FileInFolder(internal ? row.internalFile : row.externalFile), lines);
}

bool FileArchiveImage(Memory& memory) {
    platform::Files& files = memory.link.shell.host.files;
    const platform::Path& target = memory.state.archiveTarget;
    const platform::Path work = memory.link.shell.FileInFolder(ArchiveWorkFile);
    if (!files.MakeFolders(target.parent_path()) || !files.Copy(work, target)) return false;
    files.Remove(work);
    return true;
}

bool FinishRead(Memory& memory, const ReadRow& row) {
    if (row.flow == Flow::Archive && !FileArchiveImage(memory)) return false;
    if (row.flow == Flow::Connection) {
        // The image must be decoded before anything else: a file that cannot be read ends like a silent unit.
        if (memory.hooks.DecodificaImmagine && !memory.hooks.DecodificaImmagine()) return false;
        eculink::EndWithoutWatchdog(memory.link);
    } else {
        eculink::EndTransaction(memory.link);
        MenusBack(memory, row.flow);
    }
    Tell(EventsOf(memory, row.flow).done);
    return true;
}

bool ReadReply(Memory& memory, const ReadRow& row, bool internal, const std::string& frame) {
    if (!AppendLines(memory, row, internal, frame)) return false;
    auto& link = memory.link.state;
    if (link.ByteRestanti > 0) {
        link.IndirizzoCorrente += row.chunk;
        SendRead(memory, row, internal);
        return true;
    }
    if (internal) return FinishRead(memory, row);
    BeginArea(memory, row, true);
    return true;
}

std::string Data(const Memory& memory, const WriteRow& row, int address, int bytes) {
    const auto digits = static_cast<std::size_t>(2 * bytes);
    return row.erases ? std::string(digits, 'F') : memory.state.ImmagineEE.substr(ImagePosition(address), digits);
}

void SendWrite(Memory& memory, const WriteRow& row, int state, int address, int bytes) {
    TellProgress(memory, row.flow, address);
    Send(memory, state,
         frames::WriteFrame(IsInternal(address) ? 'S' : 'I', address, bytes, Data(memory, row, address, bytes)));
}

// The next chunk of the area. The first one of INTERNA starts behind the marker word.
void SendChunk(Memory& memory, const WriteRow& row, bool internal) {
    auto& link = memory.link.state;
    link.ByteRestanti -= WriteChunk;
    const int address = (internal ? FirstInternal : 0) + WriteChunk * link.IndirizzoCorrente;
    if (internal && link.IndirizzoCorrente == 0)
        return SendWrite(memory, row, row.internal, FirstDataCell, FirstDataBytes);
    SendWrite(memory, row, internal ? row.internal : row.external, address, WriteChunk);
}

void BeginWriteArea(Memory& memory, const WriteRow& row, bool internal) {
    memory.link.state.IndirizzoCorrente = 0;
    memory.link.state.ByteRestanti = internal ? InternalWritten : row.externalBytes;
    SendChunk(memory, row, internal);
}

// A programmed unit is no longer the one whose acquisition was recorded.
bool DeleteAcquisitionLogs(Memory& memory) {
    shell::Shell& shell = memory.link.shell;
    const std::string& code = memory.state.CodiceAcq;
    const bool own = platform::Trim(code).empty() || shell.host.files.Remove(shell.FileInFolder(code + ".AMP"));
    return shell.host.files.Remove(shell.FileInFolder(AcquisitionLog)) && own;
}

bool FinishWrite(Memory& memory, const WriteRow& row) {
    if (row.flow == Flow::Programming && !DeleteAcquisitionLogs(memory)) return false;
    memory.link.shell.Beep();
    eculink::EndTransaction(memory.link);
    MenusBack(memory, row.flow);
    Tell(EventsOf(memory, row.flow).done);
    return true;
}

bool MarkerReply(Memory& memory, const WriteRow& row) {
    if (row.erases || memory.state.ScriviData != shell::True) return FinishWrite(memory, row);
    TellProgress(memory, row.flow, DateCell);
    Send(memory, DateStampSent,
         frames::WriteFrame('S', DateCell, DateBytes, DateStamp(memory.link.shell.host.clock.Now())));
    return true;
}

bool WriteReply(Memory& memory, const WriteRow& row, bool internal) {
    auto& link = memory.link.state;
    if (link.ByteRestanti > 0) {
        ++link.IndirizzoCorrente;
        SendChunk(memory, row, internal);
    } else if (internal) {
        SendWrite(memory, row, row.marker, MarkerCell, MarkerBytes);
    } else {
        BeginWriteArea(memory, row, true);
    }
    return true;
}

// The unit on the line has been read: what must be known of it before it is programmed is known.
bool HoldsImage(const Memory& memory) {
    return memory.link.shell.state.SenzaImmagine == shell::False;
}

eculink::RefusalHandler Refused(Memory& memory, Flow flow) {
    return [&memory, flow] {
        MenusBack(memory, flow);
        Tell(EventsOf(memory, flow).refused);
    };
}
eculink::TimeOutHandler Silent(Memory& memory, Flow flow) {
    return [&memory, flow](int state) {
        MenusBack(memory, flow);
        if (EventsOf(memory, flow).silent) EventsOf(memory, flow).silent(state);
    };
}

void AddRead(Memory& memory, Flow flow, const eculink::StateRow& external, const eculink::StateRow& internal) {
    eculink::Catalogue& catalogue = memory.link.catalogue;
    for (const bool second : {false, true}) {
        const eculink::StateRow& row = second ? internal : external;
        catalogue.Add(
            row,
            [&memory, flow, second](const std::string& frame) {
                return ReadReply(memory, ReadOf(flow), second, frame);
            },
            {}, Silent(memory, flow));
    }
}

void AddWrite(Memory& memory, Flow flow, const eculink::StateRow& external, const eculink::StateRow& internal,
              const eculink::StateRow& marker) {
    eculink::Catalogue& catalogue = memory.link.catalogue;
    for (const bool second : {false, true}) {
        catalogue.Add(
            second ? internal : external,
            [&memory, flow, second](const std::string&) { return WriteReply(memory, WriteOf(flow), second); },
            Refused(memory, flow), Silent(memory, flow));
    }
    catalogue.Add(
        marker, [&memory, flow](const std::string&) { return MarkerReply(memory, WriteOf(flow)); },
        Refused(memory, flow), Silent(memory, flow));
}

}  // namespace

FlowEvents& EventsOf(Memory& memory, Flow flow) {
    return memory.flows.at(static_cast<std::size_t>(flow));
}

void AddFlowStates(Memory& memory) {
    AddRead(memory, Flow::Connection, {ConnectionExternal, "xlo", TimeOut::E}, {ConnectionInternal, "lo", TimeOut::E});
    AddRead(memory, Flow::Inspector, {InspectorExternal, "l", TimeOut::B}, {InspectorInternal, "o", TimeOut::B});
    AddRead(memory, Flow::Archive, {ArchiveExternal, "lis", TimeOut::J}, {ArchiveInternal, "lo", TimeOut::J});
    AddWrite(memory, Flow::Programming, {ProgrammingExternal, "is", TimeOut::L},
             {ProgrammingInternal, "is", TimeOut::L}, {ProgrammingMarker, "is", TimeOut::L});
    AddWrite(memory, Flow::Erasing, {ErasingExternal, "is", TimeOut::M}, {ErasingInternal, "is", TimeOut::None},
             {ErasingMarker, "is", TimeOut::None});
    memory.link.catalogue.Add(
        {DateStampSent, "is", TimeOut::None},
        [&memory](const std::string&) {
            memory.state.ScriviData = shell::False;  // the date stands in the unit now
            return FinishWrite(memory, WriteOf(Flow::Programming));
        },
        Refused(memory, Flow::Programming), Silent(memory, Flow::Programming));
}

void BeginConnectionRead(Memory& memory) {
    BeginArea(memory, ReadOf(Flow::Connection), false);
}

bool StartInspectorRead(Memory& memory) {
    if (memory.link.state.StatoCmd != eculink::Idle) return false;
    // Lines are appended: on what an earlier read has left they would make no image.
    if (!memory.link.shell.host.files.Remove(memory.link.shell.FileInFolder(InspectorFile))) return false;
    BeginArea(memory, ReadOf(Flow::Inspector), false);
    return true;
}

bool StartArchiveRead(Memory& memory, const platform::Path& target) {
    if (memory.link.state.StatoCmd != eculink::Idle) return false;
    memory.state.archiveTarget = target;
    // Lines are appended: on what an earlier read has left they would make no image.
    if (!memory.link.shell.host.files.Remove(memory.link.shell.FileInFolder(ArchiveWorkFile))) return false;
    MenusOff(memory, Flow::Archive);
    BeginArea(memory, ReadOf(Flow::Archive), false);
    return true;
}

bool StartErasing(Memory& memory) {
    if (memory.link.state.StatoCmd != eculink::Idle) return false;
    MenusOff(memory, Flow::Erasing);
    BeginWriteArea(memory, WriteOf(Flow::Erasing), false);
    return true;
}

ImageProblem LoadForProgramming(Memory& memory, const platform::Path& file) {
    if (memory.link.state.StatoCmd != eculink::Idle) return ImageProblem::NotNow;
    memory.state.ImmagineEE.clear();
    if (!HoldsImage(memory)) return ImageProblem::NotNow;
    platform::Files& files = memory.link.shell.host.files;
    if (const ImageProblem problem = CheckImageFile(files, file); problem != ImageProblem::None) return problem;
    auto image = LeggiImmagine(files, file);
    if (!image) return ImageProblem::Missing;
    if (!IsWholeImage(*image)) return ImageProblem::WrongSize;
    ApplyFixUps(*image);
    memory.state.ImmagineEE = platform::UpperCase(*image);  // digits on the wire are capitals
    return ImageProblem::None;
}

bool StartProgramming(Memory& memory) {
    if (memory.link.state.StatoCmd != eculink::Idle || !HoldsImage(memory)) return false;
    if (!IsWholeImage(memory.state.ImmagineEE)) return false;
    MenusOff(memory, Flow::Programming);
    BeginWriteArea(memory, WriteOf(Flow::Programming), false);
    return true;
}

std::string ProgressText(std::string_view text, int address) {
    return std::string(text) + " " + frames::Format0(address) + ")";
}

int PercentRead(int address) {
    const int done = IsInternal(address) ? AreaBytes + address - FirstInternal : address;
    return std::clamp(done * 100 / (2 * AreaBytes), 0, 100);
}

int PercentWritten(int address) {
    constexpr int AllButTheMarker = 99;
    return address == FirstInternal ? AllButTheMarker : PercentRead(address);
}

}  // namespace memory
