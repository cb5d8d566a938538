/*
 * availability.h - What a camera can do, by function index.
 *
 * Part of the exported interface: included by vmc.h, inside its extern "C"
 * block, after the records. Include <vmc/vmc.h>, not this file.
 */
#ifndef VMC_AVAILABILITY_H
#define VMC_AVAILABILITY_H

#endif /* VMC_AVAILABILITY_H */
