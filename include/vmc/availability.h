/*
 * availability.h - What a camera can do, by function index.
 *
 * Part of the exported interface: included by vmc.h, inside its extern "C"
 * block, after the records. Include <vmc/vmc.h>, not this file.
 *
 * The library learns at open what each camera and head can do; it reports
 * that by function index. With a child number 1.. an index answers for that
 * head (indices 2..168), with child 0 for the device (indices 10..168); an
 * index that means nothing in the case asked gives error 5. A result of 0
 * with error 1 means the function is absent. A few indices carry a value
 * the camera reported rather than 0 or 1 (frame-zero mode, variable
 * function, live IRIG, polarization, sub port, self sync, probes 368 and
 * 401): their result is that value.
 */
#ifndef VMC_AVAILABILITY_H
#define VMC_AVAILABILITY_H

/* Indices of VMC_IsFunction. "head" marks indices that have no device case. */
#define VMC_FUNCTION_SENSOR_GAIN                 2u   /* head */
#define VMC_FUNCTION_SENSOR_GAMMA                3u   /* head */
#define VMC_FUNCTION_COLOR_TEMP                  4u   /* head */
#define VMC_FUNCTION_DS_SHUTTER                  5u   /* head */
#define VMC_FUNCTION_LUT                         6u   /* head */
#define VMC_FUNCTION_SHADING                     7u   /* head; see VMC_EnableFunction */
#define VMC_FUNCTION_EDGE_ENHANCE                9u   /* head */
#define VMC_FUNCTION_VIDEO_OUT_MODE              10u
#define VMC_FUNCTION_SHUTTER_LOCK_MODE           11u
#define VMC_FUNCTION_PARTITION_INC_MODE          12u
#define VMC_FUNCTION_HEAD_EXCHANGE               13u
#define VMC_FUNCTION_KEY_PAD_LOCK                14u
#define VMC_FUNCTION_IRIG                        15u
#define VMC_FUNCTION_MCDL                        16u
#define VMC_FUNCTION_FRAME_ZERO_MODE             17u  /* the camera's frame-zero mode, not a flag */
#define VMC_FUNCTION_PIXEL_GAIN                  18u  /* head */
#define VMC_FUNCTION_COLOR_ENHANCE               19u  /* head */
#define VMC_FUNCTION_AUTO_EXPOSURE               20u  /* head */
#define VMC_FUNCTION_DELAY                       21u
#define VMC_FUNCTION_DOWNLOAD_MODE               22u
#define VMC_FUNCTION_VARIABLE_FUNCTION           23u  /* the camera's variable-function value, not a flag */
#define VMC_FUNCTION_LOW_LIGHT_MODE              24u
#define VMC_FUNCTION_PROG_SWITCH_MODE            25u
#define VMC_FUNCTION_SHUTTER_USEC                26u  /* head */
#define VMC_FUNCTION_SYNC_OUT_TIMES              27u
#define VMC_FUNCTION_STORE_NUM                   28u
#define VMC_FUNCTION_ETHERNET_INFO               29u
#define VMC_FUNCTION_IRIG_PHASE_LOCK             30u
#define VMC_FUNCTION_HIGH_SPEED_MODE             31u
#define VMC_FUNCTION_BURST_TRANSFER              32u
#define VMC_FUNCTION_STEP_SHUTTER                33u  /* head */
#define VMC_FUNCTION_LIVE_RESOLUTION             34u  /* head */
#define VMC_FUNCTION_BIT_DEPTH                   35u  /* head */
#define VMC_FUNCTION_FPGA_CONFIG                 36u
#define VMC_FUNCTION_CAMERA_FILE                 37u
#define VMC_FUNCTION_IMAGE_ADDRESS               38u
#define VMC_FUNCTION_SYNC_PRIORITY               39u
#define VMC_FUNCTION_RESOLUTION_ROI              40u  /* head */
#define VMC_FUNCTION_CAMERA_COMMAND_BAUD_RATE    41u  /* head */
#define VMC_FUNCTION_VIDEO_OUT_SIGNAL            42u
#define VMC_FUNCTION_VIDEO_OUT_HDSDI             43u
#define VMC_FUNCTION_RECORDING_TYPE              44u
#define VMC_FUNCTION_GHOST_REDUCTION             45u  /* head */
#define VMC_FUNCTION_SOFT_COLOR_TEMP             46u  /* head */
#define VMC_FUNCTION_AUTO_PLAY                   47u
#define VMC_FUNCTION_FACTORY_DEFAULTS            48u
#define VMC_FUNCTION_STORE_PRESET                49u
#define VMC_FUNCTION_SHUTTER_NSEC                50u  /* head */
#define VMC_FUNCTION_INSTRUCTION_SET             51u
#define VMC_FUNCTION_RESOLUTION_LOCK_MODE        52u
#define VMC_FUNCTION_LED_MODE                    53u
#define VMC_FUNCTION_LIVE_IRIG                   54u  /* the camera's answer, not a flag */
#define VMC_FUNCTION_VIDEO_OSD                   55u
#define VMC_FUNCTION_SENSOR_TEMP_MODE            56u  /* head */
#define VMC_FUNCTION_SHADING_OFFSET              57u  /* head */
#define VMC_FUNCTION_MEMORY_BLOCK                58u  /* head case only; answers for the device */
#define VMC_FUNCTION_LIVE_RESOLUTION_SCALE       59u  /* head */
#define VMC_FUNCTION_FRAME_ADDRESS               60u
#define VMC_FUNCTION_DROP_FRAME_LIST             61u
#define VMC_FUNCTION_TEST_PATTERN                62u  /* head */
#define VMC_FUNCTION_OFFSET_AS                   63u  /* head */
#define VMC_FUNCTION_H_BANDING                   64u  /* head */
#define VMC_FUNCTION_KEY_PAD_COMMAND             65u
#define VMC_FUNCTION_POLARIZATION                66u  /* head; the camera's answer, not a flag */
#define VMC_FUNCTION_SHADING_TYPE                67u  /* head */
#define VMC_FUNCTION_BLACK_CLIP_LEVEL            68u  /* head */
#define VMC_FUNCTION_BIT_DEPTH_2                 69u  /* head */
#define VMC_FUNCTION_SUB_PORT                    70u  /* the camera's answer, not a flag */
#define VMC_FUNCTION_SUB_INTERFACE_MODE          71u
#define VMC_FUNCTION_EXPOSE_EXTENSION            72u
#define VMC_FUNCTION_BATTERY_POWER_MODE          73u
#define VMC_FUNCTION_SYNC_IN_SIGNAL_STATUS       74u
#define VMC_FUNCTION_VFPN_DATA                   75u
#define VMC_FUNCTION_SENSOR_LUT_DATA             76u
#define VMC_FUNCTION_FPGA_TEMP_MODE              77u  /* head */
#define VMC_FUNCTION_DELAY_TYPE_8                78u
#define VMC_FUNCTION_DELAY_TYPE_9                79u  /* head case only; answers for the device */
#define VMC_FUNCTION_BINNING_SENSOR_MODE         80u
#define VMC_FUNCTION_EXPOSE_OUT_TIMES_1          81u
#define VMC_FUNCTION_EXPOSE_OUT_TIMES_2          82u
#define VMC_FUNCTION_IMAGE_TRIGGER               83u  /* head */
#define VMC_FUNCTION_LENS_CONTROL                84u  /* head */
#define VMC_FUNCTION_RTC                         85u
#define VMC_FUNCTION_MEMORY_MODE_PARTITION       86u  /* head */
#define VMC_FUNCTION_FIX_FRAME_RECORD_MODE       87u
#define VMC_FUNCTION_GETHER_TRANSFER_MODE        88u
#define VMC_FUNCTION_MECHA_SHUTTER_MODE          89u
#define VMC_FUNCTION_EXPOSE_TIME_DATA            90u
#define VMC_FUNCTION_FAN_CTRL                    91u
#define VMC_FUNCTION_SD_CARD_CTRL                92u
#define VMC_FUNCTION_DELAY_TYPE_10               93u  /* delay types 10 and 11 */
#define VMC_FUNCTION_MECHANICAL_SHUTTER          94u
#define VMC_FUNCTION_RANDOM_TRIGGER_ENABLE       95u
#define VMC_FUNCTION_CAL_MAX_FRAMES              96u
#define VMC_FUNCTION_SELF_SYNC_MODE              97u  /* the camera's answer, not a flag */
#define VMC_FUNCTION_SSD_BOX_CTRL                98u
#define VMC_FUNCTION_ADC                         99u
#define VMC_FUNCTION_EXPOSURE_POSITION           100u /* head case only; answers for the device */
#define VMC_FUNCTION_VSYNC_EXPOSE_DEVIATION      101u /* head case only; answers for the device */
#define VMC_FUNCTION_READ_AHEAD_TRANSFER         102u
#define VMC_FUNCTION_IRIG_SAMPLE_MODE            103u
#define VMC_FUNCTION_LOW_FRAME_RATE_MODE         104u
#define VMC_FUNCTION_SSD_BOX_CTRL_2              105u /* the same as VMC_FUNCTION_SSD_BOX_CTRL */
#define VMC_FUNCTION_DIRECT_RECORD_RAPID_PACK    106u
#define VMC_FUNCTION_HARDWARE_NOISE_REDUCTION    107u
#define VMC_FUNCTION_STORAGE_DOWNLOAD_MODE       108u
#define VMC_FUNCTION_AUTO_EXPOSURE_PROBE_294     109u
#define VMC_FUNCTION_PIXEL_GAIN_MAGNIFICATION    110u
#define VMC_FUNCTION_PARTITION_INC_MODE_1        111u
#define VMC_FUNCTION_PIXEL_GAIN_MAX_MAGNIFICATION 112u /* head case only; answers for the device */
#define VMC_FUNCTION_WARNING_TEMPERATURE         113u
#define VMC_FUNCTION_MODE_329                    114u
#define VMC_FUNCTION_BATTERY                     115u
#define VMC_FUNCTION_MEDIA                       116u
#define VMC_FUNCTION_AUTO_POWER_WHEN_SUPPLY      117u
#define VMC_FUNCTION_PARTITION_LOCK              119u
#define VMC_FUNCTION_SHUTDOWN_CAMERA             120u
#define VMC_FUNCTION_ACCELERATION_TRIGGER        121u
#define VMC_FUNCTION_FAN_REC_READY_STOP          123u
#define VMC_FUNCTION_PROBE_368                   124u /* the camera's answer, not a flag */
#define VMC_FUNCTION_TEMPERATURE                 125u
#define VMC_FUNCTION_MEM_TEMPERATURE             126u
#define VMC_FUNCTION_MAC_ADDRESS                 127u /* device only */
#define VMC_FUNCTION_PROBE_387                   128u
#define VMC_FUNCTION_MEASUREMENT_VOLTAGE         129u
#define VMC_FUNCTION_MEASUREMENT_CURRENT         130u
#define VMC_FUNCTION_EXTERNAL_OUT_SIGNAL_SPAN    131u
#define VMC_FUNCTION_MEMORY_SHARE                132u /* device only */
#define VMC_FUNCTION_MEM_ACCELERATION_DATA       133u
#define VMC_FUNCTION_WARNING_CABLE_CUTTING       134u
#define VMC_FUNCTION_TRIGGER_NOISE_FILTER        135u /* device only */
#define VMC_FUNCTION_VDAIO_TYPE                  137u /* device only */
#define VMC_FUNCTION_ACCELERATION_TRIGGER_TIME   138u
#define VMC_FUNCTION_VIDEO_OSD_CROSSHAIR_MODE    139u
#define VMC_FUNCTION_SOFT_NOISE_REDUCTION        140u
#define VMC_FUNCTION_WARNING_TEMPERATURE_THRESHOLD 141u
#define VMC_FUNCTION_PROBE_397                   142u
#define VMC_FUNCTION_PROBE_398                   143u
#define VMC_FUNCTION_TRIGGER_NOISE_FILTER_WIDTH  144u /* device only */
#define VMC_FUNCTION_VIDEO_OUT_SIGNAL_ENABLE     145u
#define VMC_FUNCTION_FAN_STATE                   146u
#define VMC_FUNCTION_PROBE_401                   147u /* head; the camera's answer byte, not a flag */
#define VMC_FUNCTION_PROBE_404                   148u
#define VMC_FUNCTION_PROBE_405                   149u
#define VMC_FUNCTION_PROBE_406                   150u
#define VMC_FUNCTION_PROBE_407                   151u
#define VMC_FUNCTION_ACCELERATION_SENSOR_ERROR   152u
#define VMC_FUNCTION_DEVICE_MEM_ACCELERATION_DATA 153u /* head case only; answers for the device */
#define VMC_FUNCTION_HEAD_LED_LASER              154u /* device only */
#define VMC_FUNCTION_REBOOT_CAMERA               155u
#define VMC_FUNCTION_LIVE_IMAGE_IRIG             156u /* head */
#define VMC_FUNCTION_LINK_SPEED                  157u
#define VMC_FUNCTION_PACKET_INTERVAL_MODE        158u
#define VMC_FUNCTION_ETHERNET_SPEED_LIMIT        159u
#define VMC_FUNCTION_FEATURE_161                 161u /* device only */
#define VMC_FUNCTION_FEATURE_162                 162u
#define VMC_FUNCTION_MEDIA_SAVE_AFTER_INSERT     163u
#define VMC_FUNCTION_TELNET_COMMAND              164u
#define VMC_FUNCTION_DEVICE_ERROR_LIST           165u
#define VMC_FUNCTION_DEVICE_ERROR_OBSERVE        166u

/* Writes the flag (or value) of index for the head childNo, or for the
   device with childNo 0, to *result. Errors: 4 for a child that does not
   exist, 5 for an index without a meaning in the case asked. No lock. */
VMC_API uint32_t VMC_IsFunction(uint32_t deviceNo, uint32_t childNo, uint32_t index, uint8_t* result,
                                uint32_t* error);

/* For recordings read back from storage: whether a camera of deviceCode
   had the function, with no device open. *result is 1, or 0 with error 21.
   reserved is not used. */
VMC_API uint32_t VMC_StorageIsFunction(uint32_t deviceCode, uint64_t reserved, int32_t index, uint8_t* result,
                                       uint32_t* error);

/* VMC_FUNCTION_SHADING only; other indices succeed and do nothing.
   Enable switches shading on again through head 1 (error 4 on a device
   without head 1), under the device lock, and marks every head as having
   it when the camera then reports its shading mode. A failure of that
   report other than error 21 leaves the device lock held by the calling
   thread. Disable marks every head as without shading, with no device
   traffic. */
VMC_API uint32_t VMC_EnableFunction(uint32_t deviceNo, uint32_t index, uint32_t* error);
VMC_API uint32_t VMC_DisableFunction(uint32_t deviceNo, uint32_t index, uint32_t* error);

#endif /* VMC_AVAILABILITY_H */
