#include "core/SaveOutput.h"

#include "core/CppOutStream.h"

#include <filesystem>
#include <fstream>
#include <iostream>

namespace VORN {

namespace {

/// Removes the regular file it is named after unless told that the file is complete.
class HalfWrittenFile {
public:
    explicit HalfWrittenFile(const std::string& name) : name_{name} {}
    HalfWrittenFile(const HalfWrittenFile&) = delete;
    HalfWrittenFile& operator=(const HalfWrittenFile&) = delete;
    ~HalfWrittenFile() {
        std::error_code ignored;
        if (!complete_ && std::filesystem::is_regular_file(name_, ignored))
            std::filesystem::remove(name_, ignored);
    }
    void setComplete() { complete_ = true; }

private:
    std::filesystem::path name_;
    bool complete_ = false;
};

void writeAndFlush(std::ostream& out, const std::function<void(WriteStream&)>& write) {
    CppOutStream stream{out};
    write(stream);
    stream.flush();
}

} // namespace

bool saveOutput(const std::string& name, const std::function<void(WriteStream&)>& write) {
    std::ofstream file{name, std::ios::binary};
    if (!file) {
        std::cerr << "Failed to open " << name << '\n';
        return false;
    }
    HalfWrittenFile guard{name};
    writeAndFlush(file, write);
    guard.setComplete();
    return true;
}

void writeToStandardOutput(const std::function<void(WriteStream&)>& write) {
    writeAndFlush(std::cout, write);
}

} // namespace VORN
