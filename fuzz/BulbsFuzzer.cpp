#include <algorithm>
#include <cstring>
#include <memory>

#include "fuzz/FuzzInput.h"
#include "k4cmndlg/filestore/contracts/SequenceRecords.h"
#include "suite/bulbcv/PlaneBulbCv.h"
#include "tests/suite/bulbcv/PlainBulbCv.h"

/// The first bytes are color, depth, rows and columns, the rest the bulb data, which goes round.
/// The picture must be that of the plain conversion to the last bit, in room that just suffices.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static k4suite::PlaneBulbCv conversion;
    k4fuzz::FuzzInput input(data, size);
    const auto color = static_cast<tag_K4_SIGN_COLOR>(input.Byte() % 18);
    const int depth = input.Byte() % 2 != 0 ? 1 : 8;
    const std::uint32_t rows = input.Byte() % 40 + 1U;
    const std::uint32_t columns = input.Word() % 600 + 1U;

    // Memory of its own for each, so that one byte too far is noticed.
    const auto bulbBytes = static_cast<std::size_t>(
        k4cmn::BytesOfFrame(rows, columns, static_cast<std::uint32_t>(color)));
    const auto bulbs = std::make_unique<std::uint8_t[]>(bulbBytes);
    const auto rest = input.Rest();
    for (std::size_t at = 0; at < bulbBytes && !rest.empty(); ++at)
        bulbs[at] = rest[at % rest.size()];

    K4ImageHeader expectedHeader;
    const std::size_t mostBytes = std::size_t{rows} * columns * 4;
    const auto expected = std::make_unique<std::uint8_t[]>(mostBytes);
    k4test::PlainBulbCv().Bulb2DIB(bulbs.get(), bulbBytes, rows, columns, color, &expectedHeader,
                                   expected.get(), mostBytes, depth);
    const std::size_t pictureBytes = expectedHeader.bmiHeader.biSizeImage;
    k4fuzz::Require(pictureBytes <= mostBytes);

    K4ImageHeader header;
    const auto pixels = std::make_unique<std::uint8_t[]>(pictureBytes);
    k4fuzz::Require(conversion.Bulb2DIB(bulbs.get(), bulbBytes, rows, columns, color, &header,
                                        pixels.get(), pictureBytes, depth) == 1);
    k4fuzz::Require(std::memcmp(&header, &expectedHeader, sizeof header) == 0);
    k4fuzz::Require(std::equal(pixels.get(), pixels.get() + pictureBytes, expected.get()));
    return 0;
}
