#include "migration/jpeg/SequentialDCTMode.h"

#include "core/Exception.h"
#include "migration/jpeg/PictureWriter.h"

namespace VORN::Migration::JPEG {

namespace {

/// What a component's blocks are decoded with; everything is borrowed.
struct ComponentDecoder {
    const HuffmanTable* dc;
    const HuffmanTable* ac;
    const InverseDct* transform;
    std::int16_t prediction = 0; // the DC coefficient of the block before
};

/// Adds the AC coefficients to a block of zeros (clause F.2.2.2); returns whether there are any.
///
/// Kept apart from the loops around it, which would take the registers that this one needs.
[[gnu::noinline]] bool readAcCoefficients(const HuffmanTable& table, ByteUnstuffer& stream,
                                          CoefficientBlock& block) {
    ByteUnstuffer bits = stream;
    bool isAny = false;
    unsigned k = 1;
    while (k < 64) {
        const auto [run, value] = table.takeCoefficient(bits);
        if (value == 0) {
            if (run == 0)
                break;
            if (run < 15)
                bits.refuse("Encountered larger than EOB0 in sequential mode. ");
            k += 16;
            continue;
        }
        k += run;
        if (k > 63)
            bits.refuse("Coefficient beyond the end of its block. ");
        block[kZigzagPlaces[k]] = static_cast<std::int16_t>(value);
        isAny = true;
        ++k;
    }
    if (k > 64)
        bits.refuse("Coefficient beyond the end of its block. ");
    stream = bits;
    return isAny;
}

/// Decodes a block to its place among the samples. `block` is scratch; only its first coefficient
/// is ever left other than 0.
void readBlock(ComponentDecoder& component, ByteUnstuffer& bits, CoefficientBlock& block,
               std::uint8_t* samples, std::size_t lineBytes) {
    component.prediction =
        static_cast<std::int16_t>(component.prediction + component.dc->takeDifference(bits));
    block[0] = component.prediction;
    const bool isDetailed = readAcCoefficients(*component.ac, bits, block);
    bits.requireData();
    if (isDetailed)
        component.transform->transform(block, samples, lineBytes);
    else
        component.transform->fill(block[0], samples, lineBytes);
}

/// Decodes the MCUs of a scan in their order.
class ScanReader {
public:
    ScanReader(const FrameLayout& layout, JPEGVector<ComponentDecoder> components,
               std::uint16_t restartInterval)
        : layout_{&layout},
          components_{std::move(components)},
          interval_{restartInterval},
          unitsToRestart_{restartInterval} {}

    void read(ByteUnstuffer& bits, PictureWriter& writer) {
        for (std::uint32_t row = 0; row < layout_->unitsDown; ++row) {
            for (std::uint32_t column = 0; column < layout_->unitsAcross; ++column) {
                if (interval_ != 0)
                    countUnit(bits);
                readUnit(bits, column, writer);
            }
            writer.finishUnitRow();
        }
    }

private:
    /// Takes the reset marker that is due before this MCU (ITU-T T.81, clause F.2.1.3.1).
    void countUnit(ByteUnstuffer& bits) {
        if (unitsToRestart_ == 0) {
            bits.readResetMarker(resetCount_);
            resetCount_ = (resetCount_ + 1) % 8;
            unitsToRestart_ = interval_;
            for (ComponentDecoder& component : components_)
                component.prediction = 0;
        }
        --unitsToRestart_;
    }

    void readUnit(ByteUnstuffer& bits, std::uint32_t column, PictureWriter& writer) {
        for (std::size_t i = 0; i < components_.size(); ++i) {
            const ComponentLayout& component = layout_->components[i];
            for (std::uint32_t v = 0; v < component.verticalSampling; ++v)
                for (std::uint32_t h = 0; h < component.horizontalSampling; ++h)
                    readBlock(components_[i], bits, block_,
                              writer.block(i, column * component.horizontalSampling + h, v),
                              writer.lineBytes(i));
        }
    }

    const FrameLayout* layout_;
    JPEGVector<ComponentDecoder> components_;
    unsigned interval_;
    unsigned unitsToRestart_;  // not counted without an interval
    CoefficientBlock block_{}; // see `readBlock`
    unsigned resetCount_ = 0;  // the number that the next reset marker must have
};

/// Whether the data can hold as many blocks; each needs a DC and an AC code.
bool canHold(const ByteUnstuffer& bits, std::uint64_t blocks) {
    return bits.rest().size() >= blocks / 4;
}

} // namespace

void SequentialDCTMode::checkScan(const ScanHeader& header) const {
    const JPEGVector<ComponentLayout>& components = layout().components;
    if (header.components.size() != components.size())
        refuse("Sequential DCT scan does not have same number of components as frame. ");
    for (std::size_t i = 0; i < components.size(); ++i)
        if (header.components[i].selector != components[i].identifier)
            refuse("Sequential DCT scan component does not match frame component. ");
    if (header.spectralStart != 0)
        throw SupportException{kNoOrigin,
                               "Sequential DCT JPEG with other than 0 start spectral selection"};
    if (header.spectralEnd != 63)
        throw SupportException{kNoOrigin,
                               "Sequential DCT JPEG with other than 63 end spectral selection"};
    if (header.approximationHigh != 0 || header.approximationLow != 0)
        throw SupportException{kNoOrigin,
                               "Sequential DCT JPEG with other than 0 successive approximation"};
}

void SequentialDCTMode::readScan(const ScanHeader& header, const Tables& tables,
                                 ByteUnstuffer& bits) {
    checkScan(header);
    JPEGVector<ComponentDecoder> decoders;
    for (std::size_t i = 0; i < header.components.size(); ++i) {
        const ScanHeader::ScanComponent& component = header.components[i];
        keepTransform(i, tables);
        decoders.push_back({.dc = &tables.dcTable(component.dcTable),
                            .ac = &tables.acTable(component.acTable),
                            .transform = &transform(i)});
    }
    // Data that cannot suffice is decoded all the same, up to the failure it must end in; but it
    // does not get memory for the picture that it claims to be.
    PictureWriter writer{layout(), canHold(bits, layout().blocks()) ? resizedPicture()
                                                                    : std::span<std::uint8_t>{}};
    ScanReader{layout(), std::move(decoders), tables.restartInterval}.read(bits, writer);
}

} // namespace VORN::Migration::JPEG
