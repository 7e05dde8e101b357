// Feeds hostile files to the readers of formats. What they say must fit the file, and its end must come soon.

#include <sys/mman.h>
#include <unistd.h>

#include "audio/source_facts.h"
#include "fuzz_check.h"
#include "platform/descriptor.h"

namespace {

/// The fuzzer's bytes as a file, behind a signature that it would seldom guess.
void check(kzq::ByteView start, kzq::ByteView rest) {
    const kzq::Descriptor file(::memfd_create("fuzz", MFD_CLOEXEC));
    require(::write(file.get(), start.data(), start.size()) == static_cast<ssize_t>(start.size()) &&
                ::write(file.get(), rest.data(), rest.size()) == static_cast<ssize_t>(rest.size()),
            "a file in memory");
    const std::uint64_t size = start.size() + rest.size();
    const kzq::FileBytes bytes(file.get(), size);
    const auto facts = kzq::factsOf(bytes);
    require(!bytes.exhausted(), "a small file is read in few steps");
    require(!facts.audio || (facts.audio->start <= facts.audio->end && facts.audio->end <= size),
            "the audio lies inside");
    require(!facts.sound || facts.sound->timescale != 0, "time has a unit");
    require(!facts.digest || facts.digest->md5.size() == 32, "an MD5 has 32 digits");
    require(facts.unsupported.size() < 1000 && facts.kind.size() < 100, "names are short");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* input, std::size_t size) {
    using namespace std::string_view_literals;
    constexpr std::array signatures{""sv,
                                    "RIFF\xff\xff\xff\xffWAVEfmt \x10\0\0\0\1\0\2\0"sv,
                                    "RF64\xff\xff\xff\xffWAVEds64"sv,
                                    "FORM\0\0\1\0AIFF"sv,
                                    "fLaC\0\0\0\x22"sv,
                                    "\0\0\0\x18"
                                    "ftypM4A "sv,
                                    "OggS\0\2"sv,
                                    "wvpk"sv,
                                    "riff\x2e\x91\xcf\x11\xa5\xd6\x28\xdb\4\xc1\0\0"sv,
                                    "caff\0\1\0\0desc"sv,
                                    "ID3\4\0\0\0\0\0\0\xff\xfb\x90\x64"sv};
    if (size == 0) {
        return 0;
    }
    const auto text = signatures.at(input[0] % signatures.size());
    const kzq::Bytes start(text.begin(), text.end());
    check(start, kzq::ByteView(input, size).subspan(1));
    return 0;
}
