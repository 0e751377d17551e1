#include "Rendering/DdsFile.h"

#include "Support/DdsBuilder.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <iomanip>
#include <random>
#include <sstream>

namespace {

using Rendering::DdsFault;
using Rendering::MemBitmap;
using Support::DdsBuilder;

/// The levels as text: one row per line from the top, a pixel as red, green, blue, alpha in hexadecimal.
std::string Decoded(const std::string& bytes) {
    std::ostringstream text;
    for (const MemBitmap& level : Rendering::DecodeDds(bytes, "a.dds"))
        for (std::size_t i = 0; i < level.Pixels().size(); ++i)
            text << std::hex << std::setw(8) << std::setfill('0') << __builtin_bswap32(level.Pixels()[i])
                 << ((i + 1) % level.Width() == 0 ? '\n' : ' ');
    return text.str();
}

struct Row {
    const char* name;
    std::string bytes;
    const char* picture;
};

// Red is F800 and blue 001F in five, six and five bits. The choices of a block's row are a byte, first pixel lowest;
// E4 chooses 0, 1, 2, 3 from left to right. File rows run from the image's bottom upwards.
const Row kRows[] = {
    {"BC1, first colour larger: two mixtures of a third each",
     DdsBuilder(4, 1).Code("DXT1").Pixels({0x00, 0xF8, 0x1F, 0x00, 0xE4, 0, 0, 0}).bytes,
     "ff0000ff 0000ffff aa0055ff 5500aaff\n"},
    {"BC1, first colour not larger: the half and a transparent pixel",
     DdsBuilder(4, 1).Code("DXT1").Pixels({0x1F, 0x00, 0x00, 0xF8, 0xE4, 0, 0, 0}).bytes,
     "0000ffff ff0000ff 800080ff 00000000\n"},
    {"BC1, a part of a block, the file's first row at the bottom",
     DdsBuilder(1, 2).Code("DXT1").Pixels({0x00, 0xF8, 0xE0, 0x07, 0, 1, 0, 0}).bytes, "00ff00ff\nff0000ff\n"},
    {"BC3, eight alphas: choices 0, 1, 2, 7 of 255 and 0",
     DdsBuilder(4, 1).Code("DXT5").Pixels({255, 0, 0x88, 0x0E, 0, 0, 0, 0, 0, 0xF8, 0, 0, 0, 0, 0, 0}).bytes,
     "ff0000ff ff000000 ff0000db ff000024\n"},
    {"BC4 with signs: choices 0, 1, 2, 7 of 1 and -1, which become 1, -1, 5/7 and -5/7",
     DdsBuilder(4, 1).Code("BC4S").Pixels({127, 0x80, 0x88, 0x0E, 0, 0, 0, 0}).bytes,
     "ff0000ff 000000ff b60000ff 000000ff\n"},
    {"32 bits", DdsBuilder(2, 1).Plain(0xFF0000, 0xFF00, 0xFF, 0xFF000000).Pixels({1, 2, 3, 4, 5, 6, 7, 8}).bytes,
     "03020104 07060508\n"},
    {"32 bits, the fourth byte without a meaning",
     DdsBuilder(1, 1).Plain(0xFF, 0xFF00, 0xFF0000, 0).Pixels({1, 2, 3, 4}).bytes, "010203ff\n"},
    {"ten bits: 1023, 0, 512 and 1 of 3",
     DdsBuilder(1, 1).Plain(0x3FF, 0xFFC00, 0x3FF00000, 0xC0000000).Pixels({0xFF, 0x03, 0x00, 0x60}).bytes,
     "ff008055\n"},
    {"16 bits, one of alpha", DdsBuilder(2, 1).Plain(0x7C00, 0x3E0, 0x1F, 0x8000, 16).Pixels({0, 0x80, 0, 0x7C}).bytes,
     "000000ff ff000000\n"},
    {"luminance", DdsBuilder(1, 1).Plain(0xFF, 0, 0, 0, 8).Word(80, 0x20000).Pixels({7}).bytes, "070707ff\n"},
    {"luminance and alpha", DdsBuilder(1, 1).Plain(0xFF, 0, 0, 0xFF00, 16).Word(80, 0x20001).Pixels({7, 8}).bytes,
     "07070708\n"},
    {"alpha alone", DdsBuilder(1, 1).Plain(0, 0, 0, 0xFF, 8).Word(80, 2).Pixels({9}).bytes, "00000009\n"},
    {"DXGI halves: 0.5, 2, -1 and no number",
     DdsBuilder(1, 1).Extended(10).Pixels({0, 0x38, 0, 0x40, 0, 0xBC, 0, 0x7E}).bytes, "80ff0000\n"},
    {"DXGI floats: 0.5 and 1", DdsBuilder(1, 1).Extended(16).Pixels({0, 0, 0, 0x3F, 0, 0, 0x80, 0x3F}).bytes,
     "80ff00ff\n"},
    {"DXGI 16 bits each: 257 times 1, 2, 3, 4", DdsBuilder(1, 1).Extended(11).Pixels({1, 1, 2, 2, 3, 3, 4, 4}).bytes,
     "01020304\n"},
    {"DXGI 565, the fifth bits' 3 of 31 rounded up", DdsBuilder(1, 1).Extended(85).Pixels({0xFF, 0x1F}).bytes,
     "19ffffff\n"},
    {"DXGI 5551", DdsBuilder(1, 1).Extended(86).Pixels({0x1F, 0x80}).bytes, "0000ffff\n"},
    {"mip levels, the second one pixel high",
     DdsBuilder(2, 1).Plain(0xFF, 0xFF00, 0xFF0000, 0).Word(28, 2).Pixels({1, 1, 1, 0, 3, 3, 3, 0, 2, 2, 2, 0}).bytes,
     "010101ff 030303ff\n020202ff\n"},
};

TEST(DdsFileTest, DecodesEveryKindOfPixel) {
    for (const Row& row : kRows)
        EXPECT_EQ(Decoded(row.bytes), row.picture) << row.name;
}

TEST(DdsFileTest, KnowsTheCodesOfTheOldHeader) {
    const std::pair<const char*, std::uint32_t> rows[] = {{"DXT2", 74},    {"DXT3", 74},   {"DXT4", 77}, {"BC4U", 80},
                                                          {"BC4S", 81},    {"ATI2", 83},   {"BC5U", 83}, {"BC5S", 84},
                                                          {"$\0\0\0", 11}, {"q\0\0\0", 10}};
    const std::string pixels = "Sixteen bytes, w";
    for (const auto& [code, number] : rows)
        EXPECT_EQ(Decoded(DdsBuilder(1, 1).Code({code, 4}).bytes + pixels),
                  Decoded(DdsBuilder(1, 1).Extended(number).bytes + pixels))
            << code;
}

TEST(DdsFileTest, NamesTheFaultOfADamagedFile) {
    const struct {
        const char* fault; ///< what the message must contain
        DdsBuilder file;
    } rows[] = {
        {"not a DDS file", DdsBuilder(8, 8).Word(0, 0)},
        {"0 x 8 pixels", DdsBuilder(0, 8).Code("DXT1")},
        {"4294967295 x 4294967295 pixels", DdsBuilder(0xFFFFFFFF, 0xFFFFFFFF).Code("DXT1")},
        {"16385 x 1 pixels", DdsBuilder(16385, 1).Code("DXT1")},
        {"128 bytes, its header promises 160 (compression code DXT1)", DdsBuilder(8, 8).Code("DXT1")},
        {"5 mip levels, 8 x 8 pixels have at most 4", DdsBuilder(8, 8).Code("DXT1").Word(28, 5)},
        {"cube map", DdsBuilder(8, 8).Code("DXT1").Word(112, 0x200)},
        {"cube map", DdsBuilder(8, 8).Extended(71).Word(136, 4)},
        {"compression code UYVY", DdsBuilder(8, 8).Code("UYVY")},
        {"D3DFMT number 117", DdsBuilder(8, 8).Code("DXT1").Word(84, 117)},
        {"DXGI format 95", DdsBuilder(8, 8).Extended(95)},
        {"extended header", DdsBuilder(8, 8).Code("DX10")},
        {"32 bits a pixel, flags 40, masks 5 ff00 ff0000 0", DdsBuilder(8, 8).Plain(5, 0xFF00, 0xFF0000, 0)},
        {"no channel has a mask", DdsBuilder(8, 8).Plain(0, 0, 0, 0)},
        {"not one that is read (12 bits", DdsBuilder(8, 8).Plain(0xF, 0xF0, 0xF00, 0, 12)},
    };
    for (const auto& row : rows) {
        try {
            Rendering::DecodeDds(row.file.bytes, "x/a.dds");
            ADD_FAILURE() << "accepted despite: " << row.fault;
        } catch (const DdsFault& fault) {
            const std::string text = fault.what();
            EXPECT_TRUE(text.starts_with("x/a.dds: ") && text.find(row.fault) != std::string::npos) << text;
        }
    }
    EXPECT_THROW(Rendering::ReadDdsFile("no/such.dds"), DdsFault);
}

TEST(DdsFileTest, SurvivesTruncatedAndCorruptedFiles) {
    std::minstd_rand random(1);
    for (const Row& row : kRows) {
        for (std::size_t length = 0; length < row.bytes.size(); ++length)
            EXPECT_THROW(Rendering::DecodeDds(row.bytes.substr(0, length), "a.dds"), DdsFault) << row.name;
        for (int round = 0; round < 2000; ++round) {
            std::string bent = row.bytes;
            for (int i = 0; i < 3; ++i)
                bent[random() % bent.size()] = static_cast<char>(random());
            try {
                std::size_t pixels = 0;
                for (const MemBitmap& level : Rendering::DecodeDds(bent, "a.dds"))
                    pixels += level.Pixels().size();
                EXPECT_LE(pixels, 2 * bent.size() + 16 * 15);
            } catch (const DdsFault&) {
            }
        }
    }
}

} // namespace
