/*
 * requests.h - Requests: ask the camera now, store the answer in the record, return it.
 *
 * Part of the exported interface: included by vmc.h, inside its extern "C"
 * block, after the records. Include <vmc/vmc.h>, not this file.
 */
#ifndef VMC_REQUESTS_H
#define VMC_REQUESTS_H

#endif /* VMC_REQUESTS_H */
