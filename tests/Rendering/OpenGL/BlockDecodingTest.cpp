#include "Rendering/DdsFile.h"
#include "Rendering/OpenGL/EglContext.h"
#include "Support/DdsBuilder.h"

#include <algorithm>
#include <epoxy/gl.h>
#include <gtest/gtest.h>
#include <random>

namespace {

constexpr std::uint32_t kBlocks = 4096; ///< one above the other

/// The driver's pixels for blocks, four bytes per pixel, in the order of the blocks.
std::vector<std::uint8_t> DriversPixels(GLenum format, const std::string& blocks) {
    GLuint texture = 0;
    glGenTextures(1, &texture);
    glBindTexture(GL_TEXTURE_2D, texture);
    glCompressedTexImage2D(GL_TEXTURE_2D, 0, format, 4, 4 * kBlocks, 0, static_cast<GLsizei>(blocks.size()),
                           blocks.data());
    std::vector<std::uint8_t> pixels(std::size_t{4} * 16 * kBlocks);
    glGetTexImage(GL_TEXTURE_2D, 0, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
    glDeleteTextures(1, &texture);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    return pixels;
}

/// The greatest difference of a byte between the driver's pixels and the reader's.
int Difference(std::uint32_t dxgiFormat, GLenum format, const std::string& blocks) {
    const auto levels =
        Rendering::DecodeDds(Support::DdsBuilder(4, 4 * kBlocks).Extended(dxgiFormat).bytes + blocks, "a");
    const std::vector<std::uint8_t> driver = DriversPixels(format, blocks);
    int difference = 0;
    for (std::size_t i = 0; i < driver.size(); ++i) {
        const std::size_t row = i / 16, x = i / 4 % 4; // the reader gives the last row first
        const auto pixel = levels.at(0).Pixels()[(4 * kBlocks - 1 - row) * 4 + x];
        difference = std::max(difference, std::abs(driver[i] - static_cast<int>(pixel >> 8 * (i % 4) & 255)));
    }
    return difference;
}

std::string RandomBlocks(std::size_t blockSize, std::uint32_t seed) {
    std::mt19937 random(seed);
    std::string bytes(kBlocks * blockSize, '\0');
    std::ranges::generate(bytes, [&] { return static_cast<char>(random()); });
    return bytes;
}

TEST(BlockDecodingTest, AgreesWithTheDriver) {
    const Rendering::OpenGL::EglContext egl;
    // The driver interpolates the older formats in eight bits, signed ones in seven, and truncates.
    const struct {
        std::uint32_t dxgiFormat;
        GLenum format;
        std::size_t blockSize;
        int tolerance;
    } rows[] = {
        {71, GL_COMPRESSED_RGBA_S3TC_DXT1_EXT, 8, 1},  {74, GL_COMPRESSED_RGBA_S3TC_DXT3_EXT, 16, 1},
        {77, GL_COMPRESSED_RGBA_S3TC_DXT5_EXT, 16, 2}, {80, GL_COMPRESSED_RED_RGTC1, 8, 2},
        {81, GL_COMPRESSED_SIGNED_RED_RGTC1, 8, 4},    {83, GL_COMPRESSED_RG_RGTC2, 16, 2},
        {84, GL_COMPRESSED_SIGNED_RG_RGTC2, 16, 4},
    };
    for (const auto& row : rows)
        EXPECT_LE(Difference(row.dxgiFormat, row.format, RandomBlocks(row.blockSize, row.dxgiFormat)), row.tolerance)
            << row.dxgiFormat;
    for (std::uint32_t mode = 0; mode <= 8; ++mode) { // 8 is reserved
        std::string blocks = RandomBlocks(16, mode);
        for (std::size_t at = 0; at < blocks.size(); at += 16) // a set bit after `mode` zeros
            blocks[at] = static_cast<char>((blocks[at] | 1) << mode);
        EXPECT_EQ(Difference(98, GL_COMPRESSED_RGBA_BPTC_UNORM_ARB, blocks), 0) << "BC7, mode " << mode;
    }
}

} // namespace
