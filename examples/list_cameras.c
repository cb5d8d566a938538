/*
 * list_cameras: initialise the library, detect the cameras on one link,
 * open each, print what the library knows about it, and close it.
 *
 *   list_cameras [interface-code]      (default 1, the virtual interface)
 */
#include <stdio.h>
#include <stdlib.h>

#include <vmc/vmc.h>

static int report(const char* what, uint32_t error) {
    fprintf(stderr, "list_cameras: %s failed with error %u\n", what, error);
    return 1;
}

static void print_device(uint32_t deviceNo) {
    uint32_t error = 0;
    static DeviceRecord record;
    static ChildRecord child;
    if (!VMC_GetDeviceInfo(deviceNo, &record, &error)) return;
    printf("  device %u: \"%s\" code %u id %u interface %u\n", deviceNo, record.deviceName, record.deviceCode,
           record.deviceId, record.interfaceCode);
    printf("    heads %u of at most %u, trigger mode 0x%08x (after %u frames)\n", record.childDeviceCount,
           record.maxChildDeviceCount, record.triggerMode, record.triggerAfterFrames);
    for (uint32_t childNo = 1; childNo <= record.maxChildDeviceCount && childNo <= VMC_MAX_CHILDREN; ++childNo) {
        if (VMC_GetChildInfo(deviceNo, childNo, &child, &error))
            printf("    head %u: \"%s\"\n", childNo, child.childName);
    }
}

int main(int argc, char** argv) {
    uint32_t interfaceCode = argc > 1 ? (uint32_t)strtoul(argv[1], NULL, 0) : VMC_INTERFACE_VIRTUAL;
    uint32_t error = 0;
    static DetectInfo found;

    if (!VMC_Init(&error)) return report("VMC_Init", error);
    if (!VMC_DetectDevice(interfaceCode, NULL, 0, 0, &found, &error)) return report("VMC_DetectDevice", error);
    printf("interface %u: %u camera(s)\n", interfaceCode, found.count);

    int failures = 0;
    for (uint32_t i = 0; i < found.count; ++i) {
        uint32_t deviceNo = VMC_MAX_DEVICES;
        if (!VMC_OpenDevice(&found.entries[i], &deviceNo, &error)) {
            failures += report("VMC_OpenDevice", error);
            continue;
        }
        print_device(deviceNo);
        if (!VMC_CloseDevice(deviceNo, &error)) failures += report("VMC_CloseDevice", error);
    }
    return failures ? 1 : 0;
}
