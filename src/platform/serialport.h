#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace zvr {

enum class Parity { none, even, odd, mark, space };

struct SerialSettings {
    int baud = 4800;
    Parity parity = Parity::none;
    int dataBits = 8;
    bool twoStopBits = false;  ///< also for one and a half
    friend bool operator==(const SerialSettings&, const SerialSettings&) = default;
};

/// Of a text such as "4800,N,8,1": baud, parity (N, E, O, M or S), data bits (5 to 8), stop bits (1, 1.5 or 2).
/// None of any other text.
[[nodiscard]] std::optional<SerialSettings> ParseSerialSettings(std::string_view text);

/// A serial line, or anything that looks like one to the system, such as a pseudo terminal. Nothing here waits.
class SerialPort {
public:
    SerialPort();
    ~SerialPort();
    SerialPort(const SerialPort&) = delete;
    SerialPort& operator=(const SerialPort&) = delete;

    using ErrorText = std::string;  ///< empty on success

    /// Closes what was open, and opens `device` without what it had received before. `settings` as above; a pseudo
    /// terminal takes any.
    [[nodiscard]] ErrorText Open(const std::string& device, std::string_view settings);
    void Close();
    /// False again once Read has found that the other end is gone: a plug was pulled.
    [[nodiscard]] bool IsOpen() const;

    static constexpr std::size_t mostRead = 4096;
    /// What has come in, `mostRead` bytes at most; empty for nothing.
    [[nodiscard]] std::string Read();

    struct State;
    std::unique_ptr<State> state;
};

}  // namespace zvr
