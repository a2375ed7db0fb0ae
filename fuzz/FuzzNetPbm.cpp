#include "fuzz/FuzzedImport.h"
#include "migration/NetPBMExporter.h"
#include "migration/NetPBMImporter.h"

using namespace VORN::Fuzz;
using namespace VORN::Migration;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Import import = importPicture<NetPBMImporter>({data, size});
    if (!import.complaint.empty())
        return 0;
    if (import.metadata.type.bits == 1)
        require(import.picture.size() ==
                    std::uint64_t{import.metadata.width} * import.metadata.height,
                "a bitmap takes one byte per pixel");
    else
        requireWholePicture(import);
    Bytes again;
    require(exportPicture<NetPBMExporter>(import, again).empty(), "what was read can be written");
    requireSame<NetPBMImporter>(import, again);
    return 0;
}
