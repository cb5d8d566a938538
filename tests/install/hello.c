/* Built against the installed tree: initialises the library and counts devices. */
#include <stdio.h>

#include <vmc/codes.h>
#include <vmc/module.h>
#include <vmc/vmc.h>

int main(void) {
    uint32_t error = 0, count = 99;
    if (!VMC_Init(&error) || !VMC_GetNumberOfDevice(&count, &error) || count != 0) {
        fprintf(stderr, "unexpected: error %u count %u\n", error, count);
        return 1;
    }
    printf("libvmc initialised, %u devices open\n", count);
    return 0;
}
