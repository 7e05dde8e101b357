#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace kzq {

/// The highest numbers ever accepted. Somebody who can only repeat what was once signed cannot go below them.
/// They are kept beside the firmware cache; without a home nothing is, and a file that cannot be written is
/// only logged. Any thread.
class UpdateFloor {
  public:
    /// `home` is the user's home folder; empty for none.
    explicit UpdateFloor(const std::filesystem::path& home);

    /// Of the list of firmware at this address; 0 for none. Each host has its own, as a rehearsal has.
    std::uint64_t firmwareSerial(const std::string& list) const;
    void raiseFirmwareSerial(const std::string& list, std::uint64_t serial) const;
    /// Of the program itself, ever installed; empty for none.
    std::string softwareVersion() const;
    void raiseSoftwareVersion(const std::string& version) const;

  private:
    std::string read(const std::string& name) const;
    void write(const std::string& name, const std::string& text) const;

    const std::filesystem::path folder_;
};

}  // namespace kzq
