#include "core/Serialization.h"
#include "fuzz/FuzzedImport.h"
#include "migration/CodecSelection.h"
#include "migration/ImageSignal.h"
#include "migration/native/NativeImporter.h"

using namespace VORN;
using namespace VORN::Fuzz;
using namespace VORN::Migration;

namespace {

Bytes fileOf(const Import& found) {
    return written([&](WriteStream& stream) {
        Serializer out{stream};
        found.metadata.serialize(out);
        out.put(static_cast<std::uint32_t>(found.picture.size()));
        stream.write(found.picture);
    });
}

/// Reads by content, which for other formats takes their importers, and leaves bytes of colour.
void readAsPicture(std::span<const std::uint8_t> file) {
    const BorrowConstBuffer buffer{file};
    ConstBufferStream stream{buffer};
    complaintOf([&] {
        const auto importer = importerByContent(stream);
        require(stream.tell() == 0, "recognition leaves the stream at its start");
        if (!importer)
            return;
        importer->setStream(&stream);
        IncrementalBuffer samples;
        ImageMetadata metadata;
        importer->importImage(samples, metadata);
        const ImageSignal<unsigned char> picture{samples, metadata};
        require(picture.size()[0] == 1 || picture.size()[0] == 3, "pictures are grey or coloured");
    });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    readAsPicture({data, size});
    const Import found = importPicture<NativeImporter>({data, size});
    if (!found.complaint.empty())
        return 0;
    requireWholePicture(found);
    requireSame<NativeImporter>(found, fileOf(found));
    return 0;
}
