/*
 * module_reads.h - Reads that ask the module now, or compute from what it answers.
 *
 * Part of the exported interface: included by vmc.h, inside its extern "C"
 * block, after the records. Include <vmc/vmc.h>, not this file.
 */
#ifndef VMC_MODULE_READS_H
#define VMC_MODULE_READS_H

#endif /* VMC_MODULE_READS_H */
