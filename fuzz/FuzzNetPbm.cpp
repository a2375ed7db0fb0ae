#include "fuzz/FuzzedImport.h"
#include "migration/netpbm/NetPBMExporter.h"
#include "migration/netpbm/NetPBMImporter.h"

using namespace VORN;
using namespace VORN::Fuzz;
using namespace VORN::Migration;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Import found = importPicture<NetPBMImporter>({data, size});
    if (!found.complaint.empty())
        return 0;
    if (found.metadata.type.bits == 1)
        require(found.samples.size() == std::uint64_t{found.metadata.width} * found.metadata.height,
                "a bitmap takes one byte per pixel");
    else
        requireWholePicture(found);
    Bytes again;
    require(exportPicture<NetPBMExporter>(found, again).empty(), "what was read can be written");
    requireSame<NetPBMImporter>(found, again);
    return 0;
}
