/*
 * cached_reads.h - Cached reads: the Get family that answers from the records without device traffic.
 *
 * Part of the exported interface: included by vmc.h, inside its extern "C"
 * block, after the records. Include <vmc/vmc.h>, not this file.
 */
#ifndef VMC_CACHED_READS_H
#define VMC_CACHED_READS_H

#endif /* VMC_CACHED_READS_H */
