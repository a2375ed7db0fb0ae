#pragma once

#include "core/Stream.h"
#include "migration/DataExporter.h"
#include "migration/DataImporter.h"

#include <memory>
#include <string_view>

namespace VORN::Migration {

/// The importer that the extension of `fileName` stands for, in any case of letters, or null.
std::unique_ptr<DataImporter> importerByExtension(std::string_view fileName);

/// The importer for what `stream` holds, or null; the stream is left at position 0.
///
/// PNG, JPEG and the native format are recognised; NetPBM deliberately is not.
std::unique_ptr<DataImporter> importerByContent(RandomReadStream& stream);

/// The importer by extension or, where that gives none, by content; null when neither does.
///
/// `stream` stands at position 0 afterwards if it did before.
std::unique_ptr<DataImporter> chooseImporter(std::string_view fileName, RandomReadStream& stream);

/// The exporter that the extension of `fileName` stands for, in any case of letters, or null.
std::unique_ptr<DataExporter> chooseExporter(std::string_view fileName);

} // namespace VORN::Migration
