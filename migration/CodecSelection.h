#pragma once

#include "core/Stream.h"
#include "migration/DataExporter.h"
#include "migration/DataImporter.h"

#include <memory>
#include <string_view>

namespace VORN::Migration {

/// An importer for the extension of `fileName`, upper or lower case; null if the extension is not
/// known.
std::unique_ptr<DataImporter> importerByExtension(std::string_view fileName);

/// An importer for the content of `stream`; null if it is not recognised. The stream is left at
/// position 0; what it throws passes through.
///
/// PNG, JPEG and the native format are recognised. Deliberately, NetPBM is not.
std::unique_ptr<DataImporter> importerByContent(RandomReadStream& stream);

/// An importer by extension or, if the extension is not known, by content; null if neither is
/// known.
///
/// `stream` must stand at position 0, and does so afterwards.
std::unique_ptr<DataImporter> chooseImporter(std::string_view fileName, RandomReadStream& stream);

/// An exporter for the extension of `fileName`, upper or lower case; null if the extension is not
/// known.
std::unique_ptr<DataExporter> chooseExporter(std::string_view fileName);

} // namespace VORN::Migration
