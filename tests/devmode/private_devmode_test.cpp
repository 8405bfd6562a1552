#include "devmode/private_devmode.h"

#include <array>
#include <cstring>

#include "common/model_identity.h"
#include "tests/support/plugin_fixture.h"

using oemui::HandleDevMode;
using oemui::Model;
using oemui::PrivateDevmode;

namespace {

constexpr DWORD kBlockSize = 348;

PrivateDevmode FilledWith(int byte) {
    PrivateDevmode block;
    std::memset(static_cast<void*>(&block), byte, sizeof block);
    return block;
}

/// A block of this model with every byte behind the header the same.
PrivateDevmode BlockOf(DWORD size, int byte) {
    PrivateDevmode block = FilledWith(byte);
    block.Header = {size, Model().Signature, 7};
    block.CappedLevel = 50;
    block.Scaling = 120;
    return block;
}

std::array<UINT32, 12> Words(const PrivateDevmode& block) {
    std::array<UINT32, 12> words;
    std::memcpy(words.data(), &block, sizeof words);
    return words;
}

bool SameFrom(std::size_t offset, const PrivateDevmode& left, const PrivateDevmode& right) {
    return std::memcmp(reinterpret_cast<const char*>(&left) + offset,
                       reinterpret_cast<const char*>(&right) + offset, kBlockSize - offset) == 0;
}

class DevMode : public tests::PluginTest {
protected:
    HRESULT Handle(DWORD mode, PrivateDevmode* in, PrivateDevmode* out) {
        params_ = {};
        params_.pOEMDMIn = in;
        params_.pOEMDMOut = out;
        return HandleDevMode(mode, &params_);
    }

    OEMDMPARAM params_ = {};
};

TEST_F(DevMode, SizeWritesNothingAndDefaultEverythingButReservedAndWatermark) {
    PrivateDevmode out = FilledWith(0x5A);
    EXPECT_EQ(Handle(OEMDM_SIZE, nullptr, &out), S_OK);
    EXPECT_EQ(params_.cbBufSize, kBlockSize);
    EXPECT_TRUE(SameFrom(0, out, FilledWith(0x5A)));
    constexpr UINT32 kOld = 0x5A5A5A5A;
    EXPECT_EQ(Handle(OEMDM_DEFAULT, nullptr, &out), S_OK);
    EXPECT_EQ(Words(out), (std::array<UINT32, 12>{kBlockSize, Model().Signature, 1, 86, kOld, 100,
                                                  kOld, 0, 0, 0, 1, 1}));
    EXPECT_TRUE(SameFrom(48, out, FilledWith(0x5A)));
    EXPECT_EQ(Handle(OEMDM_DEFAULT, nullptr, nullptr), S_OK);
}

TEST_F(DevMode, ConvertTakesAsMuchAsBothHeadersClaim) {
    for (DWORD size = 0; size <= kBlockSize + 1; ++size) {
        SCOPED_TRACE(size);
        for (const bool shortIn : {true, false}) {
            PrivateDevmode in = BlockOf(shortIn ? size : 0xFFFFFFFF, 0x11);
            PrivateDevmode out = BlockOf(shortIn ? 0xFFFFFFFF : size, 0x22);
            PrivateDevmode expected = out;
            expected.CappedLevel = 86;
            std::memcpy(static_cast<void*>(&expected), &in, std::min(size, kBlockSize));
            if (size < 16) expected.CappedLevel = 86;
            expected.Header = {kBlockSize, Model().Signature, 1};
            EXPECT_EQ(Handle(OEMDM_CONVERT, &in, &out), S_OK);
            EXPECT_TRUE(SameFrom(0, out, expected));
        }
    }
}

TEST_F(DevMode, BlockOfAnotherModelGivesDefaultsOnly) {
    for (const int mode : {OEMDM_CONVERT, OEMDM_MERGE}) {
        PrivateDevmode in = BlockOf(kBlockSize, 0x11);
        in.Header.dwSignature = 0x51565255;
        PrivateDevmode out = BlockOf(200, 0x22);
        PrivateDevmode expected = out;
        expected.Header = {kBlockSize, Model().Signature, 1};
        expected.CappedLevel = 86;
        expected.Scaling = 100;
        EXPECT_EQ(Handle(static_cast<DWORD>(mode), &in, &out), S_OK);
        EXPECT_TRUE(SameFrom(0, out, expected));
    }
}

TEST_F(DevMode, OnlyMergeCorrectsRanges) {
    // Scaling and level; both as merged.
    constexpr int kRows[][4] = {{19, 100, 100, 100},
                                {20, 101, 20, 86},
                                {200, -5, 200, -5},
                                {201, INT_MIN, 100, INT_MIN},
                                {-30, INT_MAX, 100, 86}};
    for (const auto& [scaling, level, mergedScaling, mergedLevel] : kRows) {
        PrivateDevmode in = BlockOf(kBlockSize, 0);
        in.Scaling = static_cast<UINT32>(scaling);
        in.CappedLevel = level;
        PrivateDevmode out = BlockOf(kBlockSize, 0);
        EXPECT_EQ(Handle(OEMDM_CONVERT, &in, &out), S_OK);
        EXPECT_EQ(out.Scaling, in.Scaling);
        EXPECT_EQ(out.CappedLevel, level);
        EXPECT_EQ(Handle(OEMDM_MERGE, &in, &out), S_OK);
        EXPECT_EQ(out.Scaling, static_cast<UINT32>(mergedScaling));
        EXPECT_EQ(out.CappedLevel, mergedLevel);
    }
}

TEST_F(DevMode, MissingBlocksAreNoErrorButUnknownModesAre) {
    PrivateDevmode block = BlockOf(kBlockSize, 0x33);
    block.Scaling = 500;
    EXPECT_EQ(Handle(OEMDM_CONVERT, nullptr, &block), S_OK);
    EXPECT_EQ(Handle(OEMDM_MERGE, &block, nullptr), S_OK);
    EXPECT_EQ(block.Scaling, 500U);
    EXPECT_EQ(Handle(OEMDM_MERGE, nullptr, &block), S_OK);
    EXPECT_EQ(block.Scaling, 100U);
    EXPECT_EQ(Handle(5, nullptr, nullptr), E_FAIL);
    EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(HandleDevMode(OEMDM_SIZE, nullptr), E_FAIL);
}

}  // namespace
