#include "beads/Picture.h"
#include "fuzz/Fuzzing.h"
#include "migration/CodecSelection.h"
#include "migration/ImageSignal.h"

#include <fstream>
#include <iostream>

using namespace VORN;
using namespace VORN::Fuzz;
using namespace VORN::Migration;

namespace {

Picture decode(const std::string& name) {
    std::ifstream in{name, std::ios::binary};
    const Bytes file(std::istreambuf_iterator<char>{in}, {});
    const BorrowConstBuffer bytes{file};
    ConstBufferStream stream{bytes};
    const auto importer = chooseImporter(name, stream);
    importer->setStream(&stream);
    IncrementalBuffer samples;
    ImageMetadata metadata;
    importer->importImage(samples, metadata);
    const Tuple<3, unsigned> size = ImageSignal<unsigned char>{samples, metadata}.size();
    return {std::move(samples), size};
}

/// Writes width, height and the message, which is empty when there is a picture, on a line each,
/// and then red, green and blue of its pixels, the top row first.
void write(const PictureView& picture, const std::string& complaint) {
    std::cout << picture.width() << '\n' << picture.height() << '\n' << complaint << '\n';
    std::string row;
    for (unsigned y = 0; y < picture.height(); ++y) {
        row.clear();
        for (unsigned x = 0; x < picture.width(); ++x) {
            const auto [red, green, blue] = picture.row(y)[x];
            row.append({static_cast<char>(red), static_cast<char>(green), static_cast<char>(blue)});
        }
        std::cout << row;
    }
    std::cout.flush();
}

} // namespace

/// Decodes the PNG and JPEG files that standard input names, one a line, for
/// `scripts/compare-codecs`.
int main() {
    for (std::string name; std::getline(std::cin, name);) {
        Picture picture;
        const std::string complaint = complaintOf([&] { picture = decode(name); });
        write(picture, complaint); // an empty one when it was refused
    }
}
