// The entry that libFuzzer calls; what a target throws ends the fuzzer, which keeps the bytes.
#include "fuzz/FuzzTargets.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *bytes, std::size_t size)
{
    static const Fuzz::Target &target = Fuzz::targets().at(TINTLOOM_FUZZ_TARGET);
    target(QByteArray(reinterpret_cast<const char *>(bytes), qsizetype(size)));
    return 0;
}
