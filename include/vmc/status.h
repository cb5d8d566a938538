/*
 * status.h - Status polling: bring the whole cached model up to date.
 *
 * Part of the exported interface: included by vmc.h, inside its extern "C"
 * block, after the records. Include <vmc/vmc.h>, not this file.
 */
#ifndef VMC_STATUS_H
#define VMC_STATUS_H

#endif /* VMC_STATUS_H */
