/*
 * value_lists.h - The values a setting may take, as the camera lists them.
 *
 * Part of the exported interface: included by vmc.h, inside its extern "C"
 * block, after the records. Include <vmc/vmc.h>, not this file.
 */
#ifndef VMC_VALUE_LISTS_H
#define VMC_VALUE_LISTS_H

#endif /* VMC_VALUE_LISTS_H */
