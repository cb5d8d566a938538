// Frames through the module contract: sizes by layout and depth, and the
// stamp that tells which frame a buffer holds.
#include <vector>

#include "camera/image.h"
#include "contract.h"

namespace vcam::test {
namespace {

TEST(VirtualContract, LiveFramesCarryTheirStampAtEveryDepth) {
    Contract contract;
    uint32_t ids[64], codes[64];
    ASSERT_EQ(2u, contract.Detect(ids, codes));
    const DeviceModule& dev = contract.Module();
    const vmc_device_handle mono = contract.Open(ids[0]);
    uint32_t resolution = 0, error = 0;
    ASSERT_EQ(1u, dev.DEV_GetDeviceCaps(mono, 1, VMC_CODE_RESOLUTION, 0, &resolution, nullptr, &error));
    const uint32_t width = resolution >> 16, height = resolution & 0xFFFF;
    ASSERT_GT(width, 0u);
    ASSERT_GT(height, 0u);
    for (uint32_t depth : {8u, 16u}) {
        std::vector<uint8_t> frame(size_t(width) * height * (depth > 8 ? 2 : 1) + 64, 0xEE);
        ASSERT_EQ(1u, dev.DEV_TransferLiveImage(mono, 1, depth, frame.data(), &error)) << "error " << error;
        FrameId id;
        ASSERT_TRUE(ReadStamp(frame.data(), &id)) << depth;
        EXPECT_EQ(0u, id.camera);
        EXPECT_EQ(1u, id.head);
        const size_t bytes = size_t(width) * height * (depth > 8 ? 2 : 1);
        EXPECT_EQ(0xEE, frame[bytes]) << "wrote past the frame at depth " << depth;
        EXPECT_NE(0xEE, frame[bytes - 1]);
    }
    ASSERT_EQ(1u, dev.DEV_CloseDevice(mono, &error));
}

TEST(VirtualContract, ColourHeadsDeliverMosaicOrConvertedColour) {
    Contract contract;
    uint32_t ids[64], codes[64];
    ASSERT_EQ(2u, contract.Detect(ids, codes));
    const DeviceModule& dev = contract.Module();
    const vmc_device_handle colour = contract.Open(ids[1]);
    uint32_t resolution = 0, colourType = 0, option = 0, error = 0;
    ASSERT_EQ(1u, dev.DEV_GetDeviceCaps(colour, 2, VMC_CODE_RESOLUTION, 0, &resolution, nullptr, &error));
    ASSERT_EQ(1u, dev.DEV_GetDeviceCaps(colour, 2, VMC_CODE_COLOR_TYPE, 0, &colourType, nullptr, &error));
    EXPECT_NE(0u, colourType & 0xFF);
    const size_t pixels = size_t(resolution >> 16) * (resolution & 0xFFFF);

    std::vector<uint8_t> converted(pixels * 3 + 1, 0xEE);
    ASSERT_EQ(1u, dev.DEV_TransferLiveImage(colour, 2, 8, converted.data(), &error));
    EXPECT_EQ(0xEE, converted[pixels * 3]);
    FrameId id;
    ASSERT_TRUE(ReadStamp(converted.data(), &id));
    EXPECT_EQ(1u, id.camera);
    EXPECT_EQ(2u, id.head);

    // The raw-mosaic flag of the transfer option: one sample a pixel.
    ASSERT_EQ(1u, dev.DEV_GetDeviceCaps(colour, 2, VMC_CODE_TRANSFER_OPTION, 0, &option, nullptr, &error));
    ASSERT_EQ(1u, dev.DEV_SetDeviceCaps(colour, 2, VMC_CODE_TRANSFER_OPTION, 0, option | 0x100, 0, &error));
    std::vector<uint8_t> mosaic(pixels * 2 + 1, 0xEE);
    ASSERT_EQ(1u, dev.DEV_TransferLiveImage(colour, 2, 16, mosaic.data(), &error));
    EXPECT_EQ(0xEE, mosaic[pixels * 2]);
    ASSERT_TRUE(ReadStamp(mosaic.data(), &id));
    EXPECT_EQ(2u, id.head);
    dev.DEV_CloseDevice(colour, &error);
}

}  // namespace
}  // namespace vcam::test
