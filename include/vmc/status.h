/*
 * status.h - Status polling: bring the whole cached model up to date.
 *
 * Part of the exported interface: included by vmc.h, inside its extern "C"
 * block, after the records. Include <vmc/vmc.h>, not this file.
 */
#ifndef VMC_STATUS_H
#define VMC_STATUS_H

/* Asks the camera again for every setting its keypad or panel may have
   changed, for the device and each head, under one hold of the device lock,
   and stores the answers in the records. Asks only what the camera has (by
   its availability flags). A failed poll leaves a mix of old and new values;
   poll again to recover. Three failures (sync-out and expose-out counts)
   return with the device lock still held, and other threads then time out
   with error 9 until the holder polls or closes again. */
VMC_API uint32_t VMC_DeviceStatusUpdate(uint32_t deviceNo, uint32_t* error);

#endif /* VMC_STATUS_H */
