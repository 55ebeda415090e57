#pragma once

#include "platform/files.h"

#include <cstdint>
#include <memory>
#include <string>

namespace zvr {

/// Copies what lies in a folder, with the folders below it, into another. Piece by piece, so that whoever runs it
/// beside the screen can tell how far it is, and stop. One thread at a time; on it, disks are left to everybody else
/// first.
///
/// A file has its final name only when all of it is on the disk; until then, and when the copy is broken off, it lies
/// in a folder ".zvr-copy.part" of the target. What is there already stays: the new one, file or folder, is called
/// "Copy of NAME" then, or "Copy (2) of NAME". Links are followed, but for those that lead to a folder on their own
/// way; nothing is copied of links that lead nowhere and of what is neither file nor folder.
class FileCopy {
public:
    FileCopy(std::string from, std::string to);
    ~FileCopy();  ///< removes what was under way
    FileCopy(const FileCopy&) = delete;
    FileCopy& operator=(const FileCopy&) = delete;

    /// Copies on for some 20 ms and 16 MB, longer where the disk is slow. False when nothing is left to do.
    /// The first call looks through the whole folder.
    bool Step();
    void Break();  ///< nothing is left to do from here on

    /// 0 as long as all went well, else the system's number of the first fault. Of one file it is no reason to leave
    /// the others, of the disk it ends the copy; EINVAL for a target that lies in its source, where it is left out.
    [[nodiscard]] int Fault() const;
    [[nodiscard]] const std::string& Name() const;  ///< of the file at hand, without folders
    [[nodiscard]] std::uint64_t BytesDone() const;
    [[nodiscard]] std::uint64_t BytesInAll() const;  ///< 0 before the first step

    struct State;

private:
    std::unique_ptr<State> state;
};

}  // namespace zvr
