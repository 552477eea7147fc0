#include "platform/qt/qt_port.h"

#include <algorithm>
#include <array>

#ifdef Q_OS_UNIX
#include <sys/ioctl.h>
#endif

namespace platform::qt {

namespace {

constexpr qint64 KeptUnsent = 64 * 1024;

struct ParityRow {
    char letter;
    QSerialPort::Parity parity;
};
constexpr std::array<ParityRow, 3> Parities{{
    {'N', QSerialPort::NoParity},
    {'E', QSerialPort::EvenParity},
    {'O', QSerialPort::OddParity},
}};

struct StopBitsRow {
    int halves;
    QSerialPort::StopBits stopBits;
};
// With seven or eight data bits no line sends one and a half: two are read by who expects that, one would not be.
constexpr std::array<StopBitsRow, 3> AllStopBits{{
    {2, QSerialPort::OneStop},
    {3, QSerialPort::TwoStop},
    {4, QSerialPort::TwoStop},
}};

QSerialPort::Parity ParityOf(char letter) {
    for (const ParityRow& row : Parities) {
        if (row.letter == letter) return row.parity;
    }
    return QSerialPort::NoParity;
}

QSerialPort::StopBits StopBitsOf(int halves) {
    for (const StopBitsRow& row : AllStopBits) {
        if (row.halves == halves) return row.stopBits;
    }
    return QSerialPort::OneStop;
}

// After these the descriptor is of no more use: a cable pulled out shows as any of them, by driver and system.
bool IsLoss(QSerialPort::SerialPortError error) {
    switch (error) {
        case QSerialPort::ResourceError:
        case QSerialPort::ReadError:
        case QSerialPort::WriteError:
        case QSerialPort::DeviceNotFoundError:
        case QSerialPort::PermissionError:
        case QSerialPort::UnknownError:
            return true;
        default:
            return false;
    }
}

PortFault FaultOf(QSerialPort::SerialPortError error) {
    if (error == QSerialPort::DeviceNotFoundError) return PortFault::Absent;
    return error == QSerialPort::PermissionError ? PortFault::Refused : PortFault::Failed;
}

// Drops what the driver has received; so many bytes come all the same and are to be dropped as they come. The event
// loop may be about to fetch them, and a port that finds nothing there takes its device for lost.
std::size_t DropReceived(QSerialPort& port) {
    port.readAll();
#ifdef Q_OS_UNIX
    int waiting = 0;
    return ::ioctl(port.handle(), FIONREAD, &waiting) == 0 ? static_cast<std::size_t>(std::max(waiting, 0)) : 0;
#else
    port.clear(QSerialPort::Input);
    return 0;
#endif
}

}  // namespace

QtPort::QtPort(const AfterEvent& after, int retryMillis) : after_(after) {
    // The port reports a failure in the middle of its own work, where it cannot be closed.
    loss_.setInterval(0);
    loss_.setSingleShot(true);
    retry_.setInterval(retryMillis);
    QObject::connect(&loss_, &QTimer::timeout, &port_, [this] { Vanish(); });
    QObject::connect(&retry_, &QTimer::timeout, &port_, [this] { LookForReturn(); });
    QObject::connect(&port_, &QSerialPort::readyRead, &port_, [this] { Receive(); });
    QObject::connect(&port_, &QSerialPort::errorOccurred, &port_,
                     [this](QSerialPort::SerialPortError error) { Fail(error); });
}

QtPort::~QtPort() {
    event_ = nullptr;
    Close();
}

bool QtPort::SetSettings(std::string_view settings) {
    if (!ReadLineSettings(settings, lineSettings_)) return false;
    settings_ = settings;
    return true;
}

bool QtPort::Open() {
    Close();
    if (settings_.empty() || device_.empty()) return false;
    open_ = OpenDevice();
    return open_;
}

void QtPort::Close() {
    open_ = false;
    fault_ = PortFault::None;
    loss_.stop();
    retry_.stop();
    CloseDevice();
    received_.clear();
}

std::string QtPort::Input() {
    std::string out;
    out.swap(received_);
    return out;
}

bool QtPort::Output(std::string_view bytes) {
    if (!open_ || !port_.isOpen() || port_.bytesToWrite() > KeptUnsent) return false;
    const auto size = static_cast<qint64>(bytes.size());
    return port_.write(bytes.data(), size) == size;
}

void QtPort::ClearInput() {
    received_.clear();
    if (port_.isOpen()) dropped_ = DropReceived(port_);
}

bool QtPort::OpenDevice() {
    port_.setPortName(QString::fromStdString(device_));
    port_.setBaudRate(static_cast<qint32>(lineSettings_.baud));
    port_.setParity(ParityOf(lineSettings_.parity));
    port_.setDataBits(static_cast<QSerialPort::DataBits>(lineSettings_.dataBits));
    port_.setStopBits(StopBitsOf(lineSettings_.halfStopBits));
    port_.setFlowControl(QSerialPort::NoFlowControl);
    dropped_ = 0;
    const bool opened = port_.open(QIODevice::ReadWrite);
    fault_ = opened ? PortFault::None : FaultOf(port_.error());
    if (!opened) return false;
    port_.clear();  // what a line has gathered while nobody listened is no answer to anything
    return true;
}

void QtPort::CloseDevice() {
    if (!port_.isOpen()) return;
    port_.clear();  // some drivers let closing wait until all is sent
    port_.close();
}

void QtPort::Receive() {
    const QByteArray bytes = port_.readAll();
    const std::size_t old = std::min(dropped_, static_cast<std::size_t>(bytes.size()));
    dropped_ -= old;
    if (!open_ || static_cast<std::size_t>(bytes.size()) == old) return;
    received_.append(bytes.constData() + old, static_cast<std::size_t>(bytes.size()) - old);
    const Event event = event_;
    if (event) event(EventReceived);
    after_.Run();
}

void QtPort::Fail(QSerialPort::SerialPortError error) {
    if (!open_ || !port_.isOpen() || !IsLoss(error)) return;
    loss_.start();
}

void QtPort::Vanish() {
    Receive();
    if (!open_) return;  // whoever got the last bytes may have closed the port
    CloseDevice();
    fault_ = PortFault::Absent;
    loss_.stop();  // closing a dead device fails once more
    retry_.start();
}

void QtPort::LookForReturn() {
    if (OpenDevice()) retry_.stop();
}

}  // namespace platform::qt
