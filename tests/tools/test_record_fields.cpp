// The field tables that vmc info shows and vmc status compares: a script
// reads a field by its key and a person by its label, so each must name one
// field; and the rows must read the records as the library lays them out.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include <vmc/vmc.h>

#include "record_fields.h"

namespace vmctool {
namespace {

const FieldRow& Row(std::span<const FieldRow> table, const std::string& key) {
    for (const FieldRow& row : table)
        if (key == row.first.key) return row;
    throw std::runtime_error("no row " + key);
}

TEST(RecordFields, KeysAndLabelsNameOneFieldEach) {
    for (std::span<const FieldRow> table : {DeviceFields(), ChildFields()}) {
        // "ranges" and "functions" are objects of their own beside the fields.
        std::set<std::string> keys = {"ranges", "functions"}, labels;
        for (const FieldRow& row : table) {
            EXPECT_TRUE(labels.insert(row.label).second) << row.label;
            EXPECT_TRUE(keys.insert(row.first.key).second) << row.first.key;
            if (row.second.key) {
                EXPECT_TRUE(keys.insert(row.second.key).second) << row.second.key;
            }
        }
    }
}

TEST(RecordFields, RowsShowCompareAndWriteTheRecords) {
    ChildRecord before = {};
    before.width = 1024;
    before.height = 512;
    before.serialNumber = ~0ull;
    before.colorEnhanceValue[1] = -3;
    ChildRecord after = before;
    after.height = 256;

    const FieldRow& resolution = Row(ChildFields(), "width");
    EXPECT_EQ("1024 x 512", Text(resolution, &before));
    EXPECT_FALSE(Differs(resolution.first, &before, &after));
    EXPECT_TRUE(Differs(resolution.second, &before, &after));
    EXPECT_EQ(256, Json(resolution, resolution.second, &after));

    const FieldRow& serial = Row(ChildFields(), "serialNumber");
    EXPECT_FALSE(IsShown(serial, &before)) << "all ones: the camera gave none";
    EXPECT_TRUE(Json(serial, serial.first, &before).is_null());

    // A mode is shown when the head has the function, even when it is 0.
    const FieldRow& shading = Row(ChildFields(), "shadingMode");
    EXPECT_FALSE(IsShown(shading, &before));
    before.hasShading = 1;
    EXPECT_TRUE(IsShown(shading, &before));

    const FieldRow& enhance = Row(ChildFields(), "colorEnhanceValue");
    EXPECT_EQ("0, -3, 0, 0, 0, 0, 0, 0, 0", Text(enhance, &before));
    EXPECT_EQ(-3, Json(enhance, enhance.first, &before)[1]);

    DeviceRecord device = {};
    device.deviceAddress = 0xC0A8000A;
    device.interfaceCode = VMC_INTERFACE_ETHER;
    EXPECT_EQ("192.168.0.10", Text(Row(DeviceFields(), "deviceAddress"), &device));
    device.interfaceCode = VMC_INTERFACE_VIRTUAL;
    EXPECT_EQ("3232235530", Text(Row(DeviceFields(), "deviceAddress"), &device));
    device.triggerMode = 0x2000000;
    EXPECT_EQ("0x02000000 (end)", Text(Row(DeviceFields(), "triggerMode"), &device));
}

}  // namespace
}  // namespace vmctool
