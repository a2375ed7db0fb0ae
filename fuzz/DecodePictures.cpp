#include "fuzz/Fuzzing.h"
#include "migration/CodecSelection.h"
#include "migration/ImageSignal.h"

#include <fstream>
#include <iostream>

using namespace VORN;
using namespace VORN::Fuzz;
using namespace VORN::Migration;

namespace {

void decode(const std::string& name, ImageSignal<unsigned char>& picture) {
    std::ifstream in{name, std::ios::binary};
    const Bytes file(std::istreambuf_iterator<char>{in}, {});
    const BorrowConstBuffer bytes{file};
    ConstBufferStream stream{bytes};
    const auto importer = chooseImporter(name, stream);
    importer->setStream(&stream);
    picture.importImage(*importer);
}

/// Writes width, height and the message, which is empty when there is a picture, on a line each,
/// and then red, green and blue of its pixels, the top row first.
void write(const ImageSignal<unsigned char>& picture, const std::string& complaint) {
    const unsigned width = picture.size()[1];
    const unsigned height = picture.size()[2];
    std::cout << width << '\n' << height << '\n' << complaint << '\n';
    const std::size_t rowBytes = std::size_t{3} * width;
    for (std::size_t y = height; y-- > 0;) {
        const auto row = picture.samples().subspan(y * rowBytes, rowBytes);
        std::cout.write(reinterpret_cast<const char*>(row.data()),
                        static_cast<std::streamsize>(row.size()));
    }
    std::cout.flush();
}

} // namespace

/// Decodes the PNG and JPEG files that standard input names, one a line, for
/// `scripts/compare-codecs`.
int main() {
    for (std::string name; std::getline(std::cin, name);) {
        ImageSignal<unsigned char> picture;
        const std::string complaint = complaintOf([&] { decode(name, picture); });
        write(picture, complaint); // an empty one when it was refused
    }
}
