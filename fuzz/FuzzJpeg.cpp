#include "fuzz/FuzzedImport.h"
#include "migration/jpeg/JPEGImporter.h"
#include "migration/netpbm/NetPBMExporter.h"
#include "migration/netpbm/NetPBMImporter.h"

using namespace VORN;
using namespace VORN::Fuzz;
using namespace VORN::Migration;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Import found = importPicture<JPEGImporter>({data, size});
    if (!found.complaint.empty())
        return 0;
    requireWholePicture(found);
    // Samples that were never written would differ in a second run.
    const Import again = importPicture<JPEGImporter>({data, size});
    require(again.complaint.empty() && again.samples == found.samples,
            "a file always gives the same picture");
    Bytes map;
    require(exportPicture<NetPBMExporter>(found, map).empty(), "the picture can be written");
    require(importPicture<NetPBMImporter>(map).samples == found.samples,
            "the map has the samples of the picture");
    return 0;
}
