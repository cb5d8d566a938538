/*
 * codes.h - the numbers that libvmc and a device module exchange.
 *
 * Apart from image transfers, all traffic between the library and a device
 * module goes through six entries, each keyed by a number:
 *
 *   DEV_GetDeviceCaps, DEV_SetDeviceCaps   VMC_CODE_...   one setting
 *   DEV_GetList,       DEV_SetList         VMC_LIST_...   a list of values
 *   DEV_GetData,       DEV_SetData         VMC_DATA_...   a block of data
 *
 * A number names the same thing for reading and writing, and the memory-mode
 * entries (DEV_GetMemModeDeviceCaps, DEV_GetMemModeList) use the same numbers.
 * The three families are separate: VMC_CODE_STATUS and VMC_LIST_RECORD_RATE
 * are both 0.
 *
 * Child 0 addresses the device, children 1..12 its heads. The sub-code is 0
 * unless the comment says what it selects. A setting carries one u32 unless
 * its comment names a second value.
 *
 * A module answers VMC_ERR_NOT_SUPPORTED (21) to every number its camera
 * lacks, and nothing else: the library then treats the function behind that
 * number as absent. Any other error reaches the caller and can fail an open.
 *
 * Packed values: two 16-bit quantities share one u32, the first in the high
 * 16 bits (width << 16 | height, x << 16 | y). Signed values are
 * sign-magnitude: the magnitude with bit 31 set for a whole word, or with
 * bit 15 set for a 16-bit half.
 *
 * VMC_CODE_FEATURE asks whether an optional function exists: the sub-code is
 * a VMC_FEATURE_ number and an answer of 1 means present. Feature numbers
 * are not setting codes, though some share their values.
 */
#ifndef VMC_CODES_H
#define VMC_CODES_H

/* Single settings: DEV_GetDeviceCaps, DEV_SetDeviceCaps. */
#define VMC_CODE_STATUS                             0u    /* device status word; written by the status functions */
#define VMC_CODE_CHILD_DEVICE_COUNT                 1u    /* number of camera heads present now */
#define VMC_CODE_RECORD_RATE                        2u    /* record rate, frames per second */
#define VMC_CODE_RESOLUTION                         3u    /* resolution, width << 16 | height */
#define VMC_CODE_SHUTTER_SPEED_FPS                  4u    /* shutter speed, 1/x s; sub 1 for the M form of the write */
#define VMC_CODE_SHUTTER_SPEED_USEC                 5u    /* shutter speed, microseconds */
#define VMC_CODE_TRIGGER_MODE                       6u    /* trigger mode; second value: frames after the trigger */
#define VMC_CODE_TRIGGER_RANDOM                     7u    /* random trigger: frames per trigger, trigger count */
#define VMC_CODE_COLOR_TEMP_MODE                    8u    /* colour temperature mode; written after 86..88 */
#define VMC_CODE_SENSOR_GAIN_MODE                   9u    /* sensor gain mode */
#define VMC_CODE_SENSOR_GAMMA_MODE                  10u   /* sensor gamma mode */
#define VMC_CODE_COLOR_TYPE                         11u   /* colour type of the head; low byte is used */
#define VMC_CODE_DEVICE_ID                          12u   /* user-assigned device ID */
#define VMC_CODE_EDGE_ENHANCE_MODE                  13u   /* edge enhancement mode */
#define VMC_CODE_IRIG_MODE                          14u   /* IRIG time code input on or off */
#define VMC_CODE_MCDL_MODE                          15u   /* MCDL data recording on or off */
#define VMC_CODE_SHADING_MODE                       16u   /* shading correction mode */
#define VMC_CODE_DS_SHUTTER_MODE                    17u   /* DS shutter mode */
#define VMC_CODE_LUT_MODE                           18u   /* look-up table in use */
#define VMC_CODE_IRIG_OFFSET                        19u   /* IRIG time offset */
#define VMC_CODE_PRODUCT_ID                         20u   /* product ID of the device or head */
#define VMC_CODE_LOT_ID                             21u   /* lot ID of the device or head */
#define VMC_CODE_INDIVIDUAL_ID                      22u   /* individual (serial) ID of the device or head */
#define VMC_CODE_VERSION                            23u   /* firmware version number of the device or head */
#define VMC_CODE_SHUTTER_LOCK_MODE                  24u   /* shutter lock mode */
#define VMC_CODE_PARTITION_INC_MODE                 25u   /* partition increment mode */
#define VMC_CODE_KEY_PAD_LOCK                       28u   /* key pad lock */
#define VMC_CODE_VIDEO_OUT_MODE                     29u   /* video output mode */
#define VMC_CODE_MAX_PARTITION                      30u   /* max partitions; second value: memory blocks */
#define VMC_CODE_CURRENT_PARTITION                  31u   /* partition in use */
#define VMC_CODE_PIXEL_GAIN_MODE                    32u   /* pixel gain correction mode */
#define VMC_CODE_MAX_FRAMES                         33u   /* max frames; second value: frame blocks */
#define VMC_CODE_EXTERNAL_IN_MODE                   34u   /* signal of an external input (sub = port 1..4) */
#define VMC_CODE_EXTERNAL_OUT_MODE                  35u   /* signal of an external output (sub = port 1..4) */
#define VMC_CODE_EXTERNAL_COUNT                     36u   /* number of external inputs; second value: outputs */
#define VMC_CODE_AUTO_EXPOSURE                      37u   /* auto exposure mode */
#define VMC_CODE_FRAME_ZERO_MODE                    38u   /* non-zero when frame numbering has a frame 0 */
#define VMC_CODE_PARTITION_LIST                     39u   /* frames of one partition (sub = partition) */
#define VMC_CODE_PARTITION_COUNT                    40u   /* partitions now configured */
#define VMC_CODE_TRANSFER_OPTION                    41u   /* transfer options, three bytes in one word */
#define VMC_CODE_RECORDED_FRAMES                    42u   /* frames recorded in memory */
#define VMC_CODE_TWO_STAGE_TRIGGER_FRAME            43u   /* two-stage trigger frames, two values */
#define VMC_CODE_COLOR_ENHANCE_VALUE_1              44u   /* colour enhance plane 1, 16-bit sign-magnitude values */
#define VMC_CODE_COLOR_ENHANCE_VALUE_2              45u   /* colour enhance plane 2, packed as 44 */
#define VMC_CODE_COLOR_ENHANCE_VALUE_3              46u   /* colour enhance plane 3, packed as 44 */
#define VMC_CODE_MAX_RESOLUTION                     47u   /* max resolution, width << 16 | height */
#define VMC_CODE_SEGMENT_POSITION                   48u   /* segment position, x << 16 | y */
#define VMC_CODE_CAM_MODE                           49u   /* camera mode */
#define VMC_CODE_VARIABLE_RATE                      50u   /* variable rate; write: scratch, read: sub = channel */
#define VMC_CODE_VARIABLE_RESOLUTION                51u   /* variable channel width << 16 | height (as 50) */
#define VMC_CODE_VARIABLE_POSITION                  52u   /* variable channel x << 16 | y (as 50) */
#define VMC_CODE_VARIABLE_CHANNEL_STORE             53u   /* store the scratch set of 50..52 under this channel */
#define VMC_CODE_VARIABLE_CHANNEL                   54u   /* variable channel in use */
#define VMC_CODE_VARIABLE_CHANNEL_ERASE             55u   /* erase a variable channel */
#define VMC_CODE_VARIABLE_MAX_RATE                  56u   /* max rate for the scratch resolution */
#define VMC_CODE_VARIABLE_MAX_WIDTH                 57u   /* max width for the scratch rate and height */
#define VMC_CODE_VARIABLE_MAX_HEIGHT                58u   /* max height for the scratch rate and width */
#define VMC_CODE_VARIABLE_MAX_RESOLUTION            59u   /* max width and height for the scratch rate */
#define VMC_CODE_AUTO_EXPOSURE_INFO_SIZE            60u   /* auto-exposure area, width << 16 | height */
#define VMC_CODE_AUTO_EXPOSURE_INFO_POSITION        61u   /* auto-exposure area, x << 16 | y */
#define VMC_CODE_AUTO_EXPOSURE_INFO_VALUE           62u   /* auto-exposure value; with the range if 401 says so */
#define VMC_CODE_AUTO_EXPOSURE_INFO_RANGE           63u   /* auto-exposure target range */
#define VMC_CODE_AUTO_EXPOSURE_INFO_LIMIT           64u   /* auto-exposure limit of the area settings */
#define VMC_CODE_AUTO_EXPOSURE_INFO_APPLY           65u   /* written with zeros after 60..64 to apply them */
#define VMC_CODE_MAX_CHILD_DEVICE_COUNT             66u   /* highest child number; bounds every child check */
#define VMC_CODE_RECORD_RATE_CACHE                  67u   /* record rate as the module holds it, no camera traffic */
#define VMC_CODE_RESOLUTION_CACHE                   68u   /* resolution as the module holds it */
#define VMC_CODE_MAX_FRAMES_CACHE                   69u   /* max frames and frame blocks as the module holds them */
#define VMC_CODE_RECORDED_FRAMES_CACHE              70u   /* recorded frames as the module holds them */
#define VMC_CODE_SEGMENT_POSITION_CACHE             71u   /* segment position as the module holds it */
#define VMC_CODE_MAX_BIT_DEPTH                      72u   /* highest bit depth of the head */
#define VMC_CODE_LUT_USER                           73u   /* user look-up table value; not cached */
#define VMC_CODE_DELAY                              74u   /* delay value of a signal (sub = delay type) */
#define VMC_CODE_DELAY_LIMIT                        75u   /* delay limit of a signal (sub = delay type) */
#define VMC_CODE_VARIABLE_RESTRICTION               76u   /* variable channel restrictions (sub 0..3) */
#define VMC_CODE_COLOR_ENHANCE_MODE                 77u   /* colour enhancement mode */
#define VMC_CODE_DOWNLOAD_MODE                      78u   /* download mode */
#define VMC_CODE_CAM_MODE_CACHE                     79u   /* camera mode as the module holds it */
#define VMC_CODE_VARIABLE_FUNCTION                  80u   /* non-zero when variable channels exist */
#define VMC_CODE_MAX_FULL_RESO_RATE                 81u   /* max record rate at full resolution */
#define VMC_CODE_LOW_LIGHT_MODE                     82u   /* low-light mode */
#define VMC_CODE_PROG_SWITCH_MODE                   83u   /* programmable switch mode (sub = switch 1..4) */
#define VMC_CODE_TWO_STAGE_TRIGGER_TIMING           84u   /* two-stage trigger timing */
#define VMC_CODE_PIXEL_DEFECT_MODE                  85u   /* pixel defect correction mode */
#define VMC_CODE_COLOR_TEMP_VALUE_1                 86u   /* first colour temperature value */
#define VMC_CODE_COLOR_TEMP_VALUE_2                 87u   /* second colour temperature value */
#define VMC_CODE_COLOR_TEMP_VALUE_3                 88u   /* third colour temperature value */
#define VMC_CODE_COLOR_TEMP_BASE                    89u   /* colour temperature base, two values */
#define VMC_CODE_TRANSFER_PIXEL_BUF                 90u   /* pixel buffer used by transfers */
#define VMC_CODE_AUTO_EXPOSURE_RESTRICTION          91u   /* auto-exposure restrictions (sub 0..3) */
#define VMC_CODE_BAYER_CONVERT_MODE                 92u   /* Bayer conversion done by the module */
#define VMC_CODE_DS_SHUTTER_VALUE                   93u   /* DS shutter value */
#define VMC_CODE_SYNC_OUT_TIMES                     94u   /* sync output times */
#define VMC_CODE_STORE                              95u   /* store command */
#define VMC_CODE_STORE_NUM                          96u   /* store number */
#define VMC_CODE_ETHERNET_INFO                      97u   /* Ethernet setting (sub = index) */
#define VMC_CODE_ETHERNET_INFO_2                    98u   /* Ethernet setting, alternative to 97 (see 352);
                                                             also word 5 of a variable channel (sub = channel) */
#define VMC_CODE_IRIG_PHASE_LOCK                    99u   /* IRIG phase lock mode */

#define VMC_CODE_IRIG_PHASE_LOCK_STATUS             100u  /* IRIG phase lock status */
#define VMC_CODE_HIGH_SPEED_MODE                    101u  /* high-speed mode, 8-bit value */
#define VMC_CODE_BURST_TRANSFER                     102u  /* burst transfer */
#define VMC_CODE_VARIABLE_CHANNEL_INFO_3            103u  /* sixth word of a variable channel (sub = channel) */
#define VMC_CODE_HEAD_EXCHANGE                      104u  /* head exchange */
#define VMC_CODE_STEP_SHUTTER                       105u  /* step shutter (sub 0..2) */
#define VMC_CODE_RESET_FPGA                         106u  /* reset the FPGA, two words */
#define VMC_CODE_XSVF_FILE_SIZE                     107u  /* size of the XSVF file stored for the head */
#define VMC_CODE_CAMERA_LINK_STATUS                 108u  /* camera link status of the head */
#define VMC_CODE_LIVE_RESOLUTION_MODE               109u  /* live resolution mode; also written for the scale mode */
#define VMC_CODE_SYNC_PRIORITY                      110u  /* sync priority */
#define VMC_CODE_CAMERA_COMMAND_BAUD_RATE           112u  /* baud rate of the camera command line */
#define VMC_CODE_BIT_DEPTH                          113u  /* bit depth; low byte checked against the max */
#define VMC_CODE_VIDEO_OUT_SIGNAL                   114u  /* video output signal */
#define VMC_CODE_VIDEO_OUT_HDSDI                    115u  /* HD-SDI video output */
#define VMC_CODE_RESOLUTION_ROI                     116u  /* region of interest, width << 16 | height */
#define VMC_CODE_RECORDING_TYPE                     117u  /* recording type */
#define VMC_CODE_MCDL_DATA_MODE                     118u  /* MCDL data mode */
#define VMC_CODE_GHOST_REDUCTION                    119u  /* ghost reduction */
#define VMC_CODE_SOFT_COLOR_TEMP_MODE               120u  /* software colour temperature mode; set after 121..123 */
#define VMC_CODE_SOFT_COLOR_TEMP_VALUE_1            121u  /* first software colour temperature value */
#define VMC_CODE_SOFT_COLOR_TEMP_VALUE_2            122u  /* second software colour temperature value */
#define VMC_CODE_SOFT_COLOR_TEMP_VALUE_3            123u  /* third software colour temperature value */
#define VMC_CODE_AUTO_PLAY                          124u  /* auto play */
#define VMC_CODE_FACTORY_DEFAULTS                   125u  /* factory defaults */
#define VMC_CODE_STORE_PRESET                       126u  /* store preset */
#define VMC_CODE_SHUTTER_SPEED_NSEC                 127u  /* shutter speed, nanoseconds */
#define VMC_CODE_INSTRUCTION_SET                    128u  /* instruction set of the camera */
#define VMC_CODE_BAYER_ALIGNMENT                    129u  /* Bayer alignment of the sensor */
#define VMC_CODE_RESOLUTION_LOCK_MODE               130u  /* resolution lock mode */
#define VMC_CODE_LED_MODE                           131u  /* LED mode */
#define VMC_CODE_LIVE_IRIG                          132u  /* live IRIG time: sub-seconds and a packed time word */
#define VMC_CODE_VIDEO_OSD                          133u  /* video on-screen display */
#define VMC_CODE_SENSOR_TEMP_MODE                   134u  /* sensor temperature mode */
#define VMC_CODE_SENSOR_TEMP_INFO                   135u  /* sensor temperature information */
#define VMC_CODE_SHADING_OFFSET_MODE                136u  /* shading offset mode */
#define VMC_CODE_SHADING_OFFSET_VALUE               137u  /* shading offset value */
#define VMC_CODE_SHADING_OFFSET_LIMIT               138u  /* shading offset limits, two values */
#define VMC_CODE_MEMORY_BLOCK                       139u  /* memory block setting (sub = index), two values */
#define VMC_CODE_LIVE_RESOLUTION_SCALE_MODE         141u  /* live resolution scale mode */
#define VMC_CODE_RESOLUTION_MODE                    143u  /* resolution mode, two values */
#define VMC_CODE_RESET_ALL_CURRENT_PARAM_TO_CARD    144u  /* reset all current parameters to the card */
#define VMC_CODE_RECORDED_FRAMES_PER_TRIGGER        145u  /* frames recorded per trigger (sub = index) */
#define VMC_CODE_LNX_RX_REGISTER                    146u  /* LNX receiver register, two words */
#define VMC_CODE_NUM_OF_DROP_FRAME                  147u  /* number of dropped frames */
#define VMC_CODE_TEST_PATTERN                       148u  /* test pattern, two values */
#define VMC_CODE_MEMORY_INFO                        149u  /* memory information, two values */
#define VMC_CODE_KEY_PAD_COMMAND                    150u  /* key pad command */
#define VMC_CODE_OFFSET_AS                          151u  /* AS offset */
#define VMC_CODE_H_BANDING                          152u  /* horizontal banding correction */
#define VMC_CODE_POLARIZATION                       153u  /* non-zero on a polarization head */
#define VMC_CODE_POLARIZER_CONFIG                   154u  /* polarizer configuration */
#define VMC_CODE_SHADING_TYPE                       155u  /* shading type */
#define VMC_CODE_BLACK_CLIP_LEVEL                   156u  /* black clip level */
#define VMC_CODE_DELAY_ACCESS_REGISTER              157u  /* delay access register, two words */
#define VMC_CODE_BIT_DEPTH_2                        158u  /* bit depth and second depth */
#define VMC_CODE_SUB_PORT                           159u  /* non-zero when a sub port exists */
#define VMC_CODE_SUB_INTERFACE_MODE                 160u  /* sub-interface mode */
#define VMC_CODE_EXPOSE_EXTENSION                   161u  /* exposure extension */
#define VMC_CODE_AUTO_EXPOSURE_POLL                 162u  /* asked after 37 on every status poll; answer unused */
#define VMC_CODE_BATTERY_POWER_MODE                 163u  /* battery power mode */
#define VMC_CODE_SYNC_IN_SIGNAL_STATUS              164u  /* sync input signal status, two values */
#define VMC_CODE_VFPN_DATA                          165u  /* VFPN data present (data block 14) */
#define VMC_CODE_SENSOR_LUT_DATA                    166u  /* sensor LUT data present (data block 15) */
#define VMC_CODE_FPGA_TEMP_MODE                     167u  /* FPGA temperature mode */
#define VMC_CODE_FPGA_TEMP_INFO                     168u  /* FPGA temperature information */
#define VMC_CODE_BINNING_SENSOR_MODE                169u  /* sensor binning mode */
#define VMC_CODE_DELAY_TRIG_MASK_WIDTH_MODE         170u  /* trigger mask width mode of delay signal 8 */
#define VMC_CODE_DELAY_VSYNC_MASK_WIDTH_MODE        171u  /* vsync mask width mode of delay signal 9 */
#define VMC_CODE_BATTERY_FUNCTION                   172u  /* battery function */
#define VMC_CODE_EXPOSE_OUT_TIMES_1                 173u  /* exposure-output times of port signals 13/14 */
#define VMC_CODE_SHUTTER_DISP_MODE                  174u  /* shutter display mode */
#define VMC_CODE_EXPOSE_OUT_TIMES_2                 175u  /* exposure-output times of port signals 82/88 */
#define VMC_CODE_IMAGE_TRIGGER                      176u  /* image trigger mode */
#define VMC_CODE_IMAGE_TRIGGER_INFO_1               177u  /* image trigger parameter 1, high << 16 | low */
#define VMC_CODE_IMAGE_TRIGGER_INFO_2               178u  /* image trigger parameter 2, high << 16 | low */
#define VMC_CODE_IMAGE_TRIGGER_INFO_3               179u  /* image trigger parameter 3 */
#define VMC_CODE_IMAGE_TRIGGER_INFO_4               180u  /* image trigger parameter 4 */
#define VMC_CODE_IMAGE_TRIGGER_INFO_APPLY           181u  /* written with zeros to a head to apply 177..180 */
#define VMC_CODE_IMAGE_TRIGGER_RESTRICTION          182u  /* image trigger restrictions (sub 0..3) */
#define VMC_CODE_IMAGE_TRIGGER_POLL                 183u  /* asked after 176 on every status poll; answer unused */
#define VMC_CODE_IMAGE_TRIGGER_CONDITIONS           184u  /* image trigger conditions */
#define VMC_CODE_LENS_CONTROL                       185u  /* lens control */
#define VMC_CODE_RTC                                186u  /* real-time clock: BCD date, BCD time */
#define VMC_CODE_MEMORY_MODE_PARTITION              187u  /* partition shown in memory mode */
#define VMC_CODE_FIX_FRAME_RECORD_MODE              188u  /* fixed-frame record mode */
#define VMC_CODE_G_ETHER_TRANSFER_MODE              189u  /* Gigabit Ethernet transfer mode */
#define VMC_CODE_QRX_PLL_DATA                       190u  /* QRX PLL data (sub = a << 16 | b), two values */
#define VMC_CODE_QRX_SENSOR_REGISTER                191u  /* QRX sensor register (sub = a << 16 | b), two values */
#define VMC_CODE_CAM_CODER_MODEL                    192u  /* cam coder model, two values */
#define VMC_CODE_MAC_ADDRESS                        193u  /* MAC address, two words */
#define VMC_CODE_QRX_PLL_SYNC_DATA                  194u  /* QRX PLL sync data (sub = a << 16 | b), two values */
#define VMC_CODE_MECHA_SHUTTER_MODE                 195u  /* mechanical shutter mode */
#define VMC_CODE_MECHA_SHUTTER_FUNCTION             196u  /* mechanical shutter function */
#define VMC_CODE_ENABLE_VARIABLE_CHANNEL_SETTING    197u  /* variable channel check (sub = channel); in: w << 16 | h */
#define VMC_CODE_PLL_FPGA_DATA                      199u  /* FPGA PLL data; negative values sign-magnitude, bit 31 */

#define VMC_CODE_PLL_FPGA_DATA_SAVE                 200u  /* save FPGA PLL data; 16-bit sign-magnitude halves */
#define VMC_CODE_ENABLE_FUNCTION                    201u  /* re-enable a head function (shading) */
#define VMC_CODE_FAN_CTRL                           202u  /* fan control mode and value */
#define VMC_CODE_FAN_STATE                          203u  /* fan state, two values */
#define VMC_CODE_SD_CARD_CTRL                       204u  /* SD card control; SSD box control in storage mode 1 */
#define VMC_CODE_SD_CARD_STATE                      205u  /* SD card state (sub = slot); also RapidPack state */
#define VMC_CODE_SD_CARD_INFO                       206u  /* SD card information (sub = slot) */
#define VMC_CODE_SD_CARD_DATA_REC_DATE              207u  /* recording date of card data (sub = a << 16 | b) */
#define VMC_CODE_SD_CARD_DATA_REC_FRAMES            208u  /* frames of card data (sub = a << 16 | b) */
#define VMC_CODE_SD_CARD_MEMORY_MODE                209u  /* SD card memory mode */
#define VMC_CODE_SD_CARD_RUN_STATE                  210u  /* SD card run state (sub = index) */
#define VMC_CODE_SD_CARD_FORMAT_REQUEST             211u  /* format the card */
#define VMC_CODE_SD_CARD_CANCEL_REQUEST             212u  /* cancel the card operation */
#define VMC_CODE_SD_CARD_RESET_REQUEST              213u  /* reset the card */
#define VMC_CODE_SD_CARD_SAVE_REQUEST               214u  /* save to the card */
#define VMC_CODE_SEN_AMP_V_ADJUST_REQUEST           215u  /* start the sense amplifier voltage adjustment */
#define VMC_CODE_SOFT_NOISE_REDUCTION               216u  /* software noise reduction, two values */
#define VMC_CODE_EXPOSE_TIME_DATA                   217u  /* exposure time data present (data block 17) */
#define VMC_CODE_CURRENT_FRAMES_RECORDED            218u  /* frames recorded so far */
#define VMC_CODE_DELAY_LIMIT_10_11                  219u  /* limit of delay type 10 or 11 (sub = type), primed */
#define VMC_CODE_SHADING_SAVE_COPY                  220u  /* save a copy of the shading data */
#define VMC_CODE_MECHANICAL_SHUTTER                 221u  /* mechanical shutter state */
#define VMC_CODE_SENSOR_PGA_REGISTER                222u  /* sensor PGA register (sub = b << 24 | a << 16 | c) */
#define VMC_CODE_INITIAL_ERROR                      223u  /* error the camera stored at start-up, two values */
#define VMC_CODE_LAST_ERROR                         224u  /* last error the camera stored, two values */
#define VMC_CODE_IGNORE_TRIGGER_NUMBER              225u  /* number of ignored triggers */
#define VMC_CODE_AUTO_PLL_ADJUST                    226u  /* automatic PLL adjustment (sub = index) */
#define VMC_CODE_AUTO_PHASE_ADJUST                  227u  /* automatic phase adjustment (sub = index) */
#define VMC_CODE_IMAGE_SUMCHECK_SETUP               228u  /* image checksum setup, two values */
#define VMC_CODE_PHASE_DATA_SAVE                    229u  /* save the phase data */
#define VMC_CODE_PHASE_DATA                         231u  /* phase data: a << 16 | b, and c */
#define VMC_CODE_SEND_MESSAGE                       232u  /* send a message to the camera (sub = message) */
#define VMC_CODE_EXT_SYNC_OVER_SYNC                 233u  /* external sync over-sync */
#define VMC_CODE_HEAD_LED_LASER                     234u  /* LED or laser of the head, two values */
#define VMC_CODE_LENS_INFO                          235u  /* lens information */
#define VMC_CODE_RGMII_DATA                         236u  /* RGMII data (sub = index), two values */
#define VMC_CODE_HARDWARE_VERSION                   237u  /* hardware version (sub = index) */
#define VMC_CODE_BOARD_VERSION                      238u  /* board version (sub = index) */
#define VMC_CODE_RANDOM_TRIGGER_ENABLE              239u  /* random trigger enable */
#define VMC_CODE_CAL_MAX_FRAMES                     240u  /* max frames for calibration, two values */
#define VMC_CODE_PIXEL_GAIN_MAGNIFICATION           241u  /* pixel gain magnification */
#define VMC_CODE_PIXEL_GAIN_MAGNIFICATION_UPLOAD    242u  /* stored magnification, 1024 if absent; write uploads */
#define VMC_CODE_ADC_PLL_DATA                       243u  /* ADC PLL data (sub 0 set, 1 save), sign-magnitude */
#define VMC_CODE_TX_HEAD_BOARD_MODIFY_INFO          269u  /* modification info of the head board */
#define VMC_CODE_SELF_SYNC_MODE                     270u  /* self-sync mode */
#define VMC_CODE_ENABLE_SELF_SYNC_MODE              271u  /* non-zero when self-sync is possible */
#define VMC_CODE_SSD_BOX_INFO                       272u  /* SSD box information (sub 0..1), two values */
#define VMC_CODE_STORAGE_MODE                       273u  /* attached storage: 0 SD card, 1 SSD box, 2 media */
#define VMC_CODE_SLOW_SHUTTER_LIMIT                 274u  /* slow shutter limit */
#define VMC_CODE_SD_CARD_DOWNLOAD_SLOT              275u  /* card slot used for downloads */
#define VMC_CODE_EXPOSURE_POSITION                  278u  /* exposure position */
#define VMC_CODE_VSYNC_EXPOSE_DEVIATION             280u  /* deviation of exposure from vsync */
#define VMC_CODE_READ_AHEAD_TRANSFER                281u  /* non-zero: split memory transfers drop the lock */
#define VMC_CODE_READ_AHEAD_RANGE                   282u  /* first and last frame index of a read-ahead transfer */
#define VMC_CODE_ADC_MODE                           283u  /* ADC mode */
#define VMC_CODE_ADC_INFO                           284u  /* ADC information, two values */
#define VMC_CODE_HARDWARE_NOISE_REDUCTION           285u  /* hardware noise reduction, two values */
#define VMC_CODE_RESET_TRIGGER_EXPOSE_DELAY         286u  /* exposure delay after a reset trigger */
#define VMC_CODE_DEAD_TIME_VALUE                    287u  /* dead time */
#define VMC_CODE_STRADDLING_DELAY                   288u  /* straddling delay, two values */
#define VMC_CODE_LIVE_RESET_MODE                    289u  /* live reset mode: b << 16 | a, and c */
#define VMC_CODE_ADC_RANGE                          291u  /* ADC range (sub = index), two values */
#define VMC_CODE_IRIG_SAMPLE_MODE                   293u  /* IRIG sample mode */
#define VMC_CODE_AUTO_EXPOSURE_PROBE_294            294u  /* auto-exposure companion; sets hasAutoExposureCode294 */
#define VMC_CODE_LOW_FRAME_RATE_MODE                296u  /* low frame rate mode */
#define VMC_CODE_MAX_RANDOM_TRIGGER_COUNT           297u  /* max random trigger count */

#define VMC_CODE_FPGA_STATUS                        300u  /* FPGA status, two words */
#define VMC_CODE_OPERATION_MODE                     304u  /* operation mode */
#define VMC_CODE_DIRECT_RECORD_RAPID_PACK           305u  /* direct recording to the RapidPack */
#define VMC_CODE_RAPID_PACK_OPEN                    306u  /* open the RapidPack */
#define VMC_CODE_RAPID_PACK_CLOSE                   307u  /* close the RapidPack */
#define VMC_CODE_RAPID_PACK_ACTIVITY_RATIO          308u  /* RapidPack activity ratio (sub = index) */
#define VMC_CODE_RAPID_PACK_TOTAL_WRITTEN_SIZE      309u  /* RapidPack total written size (sub = index) */
#define VMC_CODE_MESSAGE_ANSWER                     310u  /* answer to a message (sub = message), two values */
#define VMC_CODE_TRIGGER_NOISE_FILTER               316u  /* trigger noise filter */
#define VMC_CODE_ACCELERATION_TRIGGER               317u  /* acceleration trigger, two values */
#define VMC_CODE_DEVICE_SERIES                      318u  /* device series */
#define VMC_CODE_STORAGE_DOWNLOAD_MODE              319u  /* storage download mode */
#define VMC_CODE_PROG_SWITCH_COUNT                  320u  /* number of programmable switches */
#define VMC_CODE_PIXEL_GAIN_DATA_SIZE               321u  /* size of the pixel gain data */
#define VMC_CODE_RAPID_PACK_DATA_COUNT              322u  /* RapidPack data count (sub = index) */
#define VMC_CODE_RECORDING_SYNC_OUT_MODE            323u  /* sync output mode while recording */
#define VMC_CODE_SHADING_AVAILABLE                  324u  /* shading data available */
#define VMC_CODE_CONNECT_STATE                      325u  /* device or child connection state; 0 = link down */
#define VMC_CODE_FRAME_INDEX_MODE                   326u  /* 1 numbers frames from the start frame */
#define VMC_CODE_MAX_RANDOM_ENDLESS_TRIGGER_COUNT   327u  /* max triggers in random endless mode */
#define VMC_CODE_DS_SHUTTER_LIMIT                   328u  /* DS shutter limit */
#define VMC_CODE_MODE_329                           329u  /* stored, never interpreted */
#define VMC_CODE_WIFI_SCAN_COUNT                    330u  /* number of Wi-Fi networks found */
#define VMC_CODE_WIFI_SCAN_REQUEST                  331u  /* start a Wi-Fi scan */
#define VMC_CODE_WIFI_SCAN_INFO                     332u  /* one Wi-Fi scan result (sub = index) */
#define VMC_CODE_WIFI_CONNECT                       333u  /* connect to a Wi-Fi network (sub = index) */
#define VMC_CODE_WIFI_DISCONNECT                    334u  /* disconnect from Wi-Fi */
#define VMC_CODE_MEDIA_SAVE_REQUEST                 335u  /* save frames to a medium (sub = slot): first, last */
#define VMC_CODE_MEDIA_STATE                        336u  /* state of a medium (sub = slot), two values */
#define VMC_CODE_MEDIA_RUN_STATE                    337u  /* run state of a medium (sub = index), two values */
#define VMC_CODE_MEDIA_FORMAT_REQUEST               338u  /* format a medium (sub = slot) */
#define VMC_CODE_MEDIA_INFO                         339u  /* information of a medium (sub = slot), two values */
#define VMC_CODE_MEDIA_OPEN                         340u  /* open a medium (sub = slot) */
#define VMC_CODE_MEDIA_CLOSE                        341u  /* close a medium (sub = slot) */
#define VMC_CODE_BATTERY_INFO                       342u  /* battery information, two values */
#define VMC_CODE_SHUTDOWN_BATTERY_SUPPLY            343u  /* battery levels for shutdown, two values */
#define VMC_CODE_AUTO_POWER_WHEN_SUPPLY             344u  /* power on when supply returns */
#define VMC_CODE_CONNECTED_ETHERNET_INFO            352u  /* Ethernet setting in use (sub = index); picks 97 or 98 */
#define VMC_CODE_PARTITION_LOCK                     353u  /* partition lock, two values */
#define VMC_CODE_EXTERNAL_OUT_SIGNAL_SPAN           354u  /* span of an external output signal (sub = port), 8-bit */
#define VMC_CODE_LOW_LIGHT_RECORD_RATE              355u  /* record rate of the low-light mode */
#define VMC_CODE_MEASUREMENT_VOLTAGE                357u  /* measured voltage (sub = index), two values */
#define VMC_CODE_MEASUREMENT_CURRENT                358u  /* measured current (sub = index), two values */
#define VMC_CODE_FAN_REC_READY_STOP                 359u  /* fan stop while ready to record; first byte, signed */
#define VMC_CODE_MEMORY_SHARE                       360u  /* memory sharing */
#define VMC_CODE_PROBE_368                          368u  /* opaque; its answer is kept as hasCode368 */
#define VMC_CODE_MEM_TEMPERATURE_TYPE               369u  /* temperature type kept with the recording, two values */
#define VMC_CODE_WARNING_TEMPERATURE                370u  /* temperature warning */
#define VMC_CODE_WARNING_CABLE_CUTTING              371u  /* cable cut warning */
#define VMC_CODE_SHUTDOWN_CAMERA                    372u  /* shut the camera down */
#define VMC_CODE_MEDIA_SAVE_BATTERY_SUPPLY          373u  /* battery levels for saving to media, two values */
#define VMC_CODE_ACCELERATION_TRIGGER_TIME          374u  /* acceleration trigger time */
#define VMC_CODE_TEMPERATURE                        376u  /* temperature (sub = temperature type) */
#define VMC_CODE_MEDIA_CANCEL_REQUEST               377u  /* cancel the media operation */
#define VMC_CODE_MEDIA_FRAME_RANGE                  378u  /* first and last frame of a medium (sub = slot) */
#define VMC_CODE_TRIGGER_NOISE_FILTER_WIDTH_2       380u  /* trigger noise filter widths 2 and 3, two values */
#define VMC_CODE_PIXEL_GAIN_DATA_MODE3_SIZE         381u  /* size of the mode-3 pixel gain data */
#define VMC_CODE_ACCELERATION_TRIGGER_LIMIT         382u  /* acceleration trigger limits: hi << 16 | lo, third */
#define VMC_CODE_MAX_PIXEL_DEFECT_COUNT             383u  /* max entries of the pixel defect list */
#define VMC_CODE_VDAIO_TYPE                         384u  /* VDAIO type (sub 0..2) */
#define VMC_CODE_SHUTDOWN_BATTERY_RANGE             385u  /* range of the shutdown battery levels, two values */
#define VMC_CODE_MEDIA_SAVE_BATTERY_RANGE           386u  /* range of the media-save battery levels, two values */
#define VMC_CODE_PROBE_387                          387u  /* opaque; presence kept as hasCode387 */
#define VMC_CODE_LENS_PARAM                         388u  /* lens parameter (sub = parameter), two values */
#define VMC_CODE_ACCELERATION_TRIGGER_TIME_LIMIT    389u  /* acceleration trigger time limits, packed as 382 */
#define VMC_CODE_SERIAL_NUMBER                      390u  /* serial number of the device or head; 64-bit field */
#define VMC_CODE_VIDEO_OSD_CROSSHAIR_MODE           391u  /* crosshair on the video display, two values */
#define VMC_CODE_RAPID_PACK_TEMPERATURE_TYPE        392u  /* RapidPack temperature type (sub = a << 16 | b) */
#define VMC_CODE_WARNING_TEMPERATURE_THRESHOLD      393u  /* warning threshold (sub = temperature type), two values */
#define VMC_CODE_STORE_PRESET_REBOOT                394u  /* store preset reboot flag */
#define VMC_CODE_SHUTTER_SPEED_PRECISION            395u  /* shutter speed precision */
#define VMC_CODE_RAPID_PACK_SHUTTER_SPEED_PRECISION 396u  /* RapidPack shutter precision (sub = index) */
#define VMC_CODE_PROBE_397                          397u  /* opaque, two values; presence kept as hasCode397 */
#define VMC_CODE_PROBE_398                          398u  /* opaque, two values; presence kept as hasCode398 */
#define VMC_CODE_TRIGGER_NOISE_FILTER_WIDTH         399u  /* trigger noise filter width 1 */

#define VMC_CODE_VIDEO_OUT_SIGNAL_ENABLE            400u  /* video output signal enable, two values */
#define VMC_CODE_PROBE_401                          401u  /* opaque head byte; non-zero: 62 also carries the range */
#define VMC_CODE_AUTO_EXPOSURE_LIMIT                402u  /* auto-exposure limit of the head */
#define VMC_CODE_SAVE_SLOT_NO                       403u  /* save slot number of the device or head */
#define VMC_CODE_PROBE_404                          404u  /* opaque, asked with an SSD box; 1 sets hasCode404 */
#define VMC_CODE_PROBE_405                          405u  /* opaque, asked with an SSD box; 1 sets hasCode405 */
#define VMC_CODE_PROBE_406                          406u  /* opaque, asked with an SSD box; 1 sets hasCode406 */
#define VMC_CODE_PROBE_407                          407u  /* opaque, asked with an SSD box; 1 sets hasCode407 */
#define VMC_CODE_ACCELERATION_SENSOR_ERROR          408u  /* acceleration sensor error, two values */
#define VMC_CODE_SHADING_RESPONSE_TYPE              409u  /* shading response type */
#define VMC_CODE_REBOOT_CAMERA                      410u  /* reboot the camera */
#define VMC_CODE_CAMERA_HEAD_TYPE                   414u  /* head type; 2 couples the shutters of all heads */
#define VMC_CODE_ANALOG_GAIN                        415u  /* analogue gain */
#define VMC_CODE_ANALOG_GAIN_SAVE                   416u  /* save the analogue gain */
#define VMC_CODE_ANALOG_OFFSET                      417u  /* analogue offset */
#define VMC_CODE_ANALOG_OFFSET_SAVE                 418u  /* save the analogue offset */
#define VMC_CODE_HEAD_PORT_NUMBER                   419u  /* port number of the head */
#define VMC_CODE_PIXEL_GAIN_BY_TARGET               420u  /* pixel gain from targets: sub 1..3 values, sub 0 starts */
#define VMC_CODE_PIXEL_GAIN_BY_RATIO                421u  /* pixel gain from ratios: sub 1..3 values, sub 0 starts */
#define VMC_CODE_PIXEL_GAIN_BY_PLANE_RATIO          422u  /* pixel gain from one plane ratio (sub = plane) */
#define VMC_CODE_MECHANICAL_SHUTTER_ERROR           423u  /* mechanical shutter error */
#define VMC_CODE_LINK_SPEED                         424u  /* link speed */
#define VMC_CODE_PACKET_INTERVAL_MODE               425u  /* packet interval: sub 0 mode, sub 1 10G interval */
#define VMC_CODE_EXPOSURE_TIME_NSEC                 426u  /* exposure time, nanoseconds; not cached */
#define VMC_CODE_ETHERNET_SPEED_LIMIT               427u  /* Ethernet speed limit */
#define VMC_CODE_FEATURE                            428u  /* feature query (sub = VMC_FEATURE_...); 1 = present */
#define VMC_CODE_MEDIA_SAVE_AFTER_INSERT            429u  /* save to a medium when one is inserted */
#define VMC_CODE_SHADING_DATA_SIZE                  430u  /* size of the shading data */
#define VMC_CODE_TELNET_COMMAND_NUM                 431u  /* number of telnet commands */
#define VMC_CODE_DEVICE_ERROR_OBSERVE               432u  /* device error observation */
#define VMC_CODE_PHASE_ADJUSTMENT                   435u  /* start the phase adjustment */

/* Feature numbers: the sub-code of VMC_CODE_FEATURE. */
#define VMC_FEATURE_161                             161u  /* present or absent; not interpreted */
#define VMC_FEATURE_162                             162u  /* present or absent; not interpreted (device and heads) */
#define VMC_FEATURE_TELNET_COMMAND                  164u  /* telnet commands (code 431, data 75) */
#define VMC_FEATURE_DEVICE_ERROR_LIST               165u  /* device error list (list 58) */
#define VMC_FEATURE_DEVICE_ERROR_OBSERVE            166u  /* device error observation (code 432) */
#define VMC_FEATURE_PHASE_ADJUSTMENT                168u  /* phase adjustment (code 435) */

/* Value lists: DEV_GetList, DEV_SetList. */
#define VMC_LIST_RECORD_RATE                        0u    /* selectable record rates */
#define VMC_LIST_RESOLUTION                         1u    /* selectable resolutions at the current rate */
#define VMC_LIST_SHUTTER_SPEED_FPS                  2u    /* selectable shutter speeds, 1/x s */
#define VMC_LIST_SHUTTER_SPEED_USEC                 3u    /* selectable shutter speeds, microseconds */
#define VMC_LIST_TRIGGER_MODE                       4u    /* selectable trigger modes */
#define VMC_LIST_SENSOR_GAIN_MODE                   5u    /* selectable sensor gain modes */
#define VMC_LIST_SENSOR_GAMMA_MODE                  6u    /* selectable sensor gamma modes */
#define VMC_LIST_EXTERNAL_IN_MODE                   7u    /* signals of an external input (sub = port) */
#define VMC_LIST_EXTERNAL_OUT_MODE                  8u    /* signals of an external output (sub = port) */
#define VMC_LIST_COLOR_TEMP_MODE                    9u    /* selectable colour temperature modes */
#define VMC_LIST_LUT_MODE                           10u   /* selectable look-up tables */
#define VMC_LIST_VARIABLE_RECORD_RATE               11u   /* record rates allowed for variable channels */
#define VMC_LIST_DS_SHUTTER_MODE                    12u   /* selectable DS shutter modes */
#define VMC_LIST_VIDEO_OUT_MODE                     13u   /* selectable video output modes */
#define VMC_LIST_SHADING_MODE                       14u   /* selectable shading modes */
#define VMC_LIST_AE_SHUTTER_FPS                     15u   /* auto-exposure shutter speeds, 1/x s */
#define VMC_LIST_AE_SHUTTER_USEC                    16u   /* auto-exposure shutter speeds, microseconds */
#define VMC_LIST_EDGE_ENHANCE_MODE                  17u   /* selectable edge enhancement modes */
#define VMC_LIST_PIXEL_DEFECT                       18u   /* pixel defect list; read and written */
#define VMC_LIST_EXIST_CHILD_DEVICE                 19u   /* child numbers of the heads present; 0 = empty entry */
#define VMC_LIST_LUT_VALUE_1                        20u   /* look-up table values of plane 1; read and written */
#define VMC_LIST_LUT_VALUE_2                        21u   /* look-up table values of plane 2; read and written */
#define VMC_LIST_LUT_VALUE_3                        22u   /* look-up table values of plane 3; read and written */
#define VMC_LIST_MEM_EVENT_FRAME                    23u   /* event frames of the recording */
#define VMC_LIST_PROG_SWITCH_MODE                   24u   /* selectable programmable switch modes */
#define VMC_LIST_LUT_ORG_VALUE_1                    25u   /* original look-up table values of plane 1 */
#define VMC_LIST_LUT_ORG_VALUE_2                    26u   /* original look-up table values of plane 2 */
#define VMC_LIST_LUT_ORG_VALUE_3                    27u   /* original look-up table values of plane 3 */
#define VMC_LIST_PIXEL_GAIN_MODE                    28u   /* selectable pixel gain modes */
#define VMC_LIST_SYNC_OUT_TIMES                     29u   /* selectable sync output times */
#define VMC_LIST_MEM_EVENT_R_COUNT                  30u   /* block counts of the recorded events */
#define VMC_LIST_COLOR_ENHANCE_MODE                 31u   /* selectable colour enhancement modes */
#define VMC_LIST_HEAD_EXCHANGE                      32u   /* selectable head exchange settings */
#define VMC_LIST_LIVE_RESOLUTION                    33u   /* selectable live resolution modes */
#define VMC_LIST_SYNC_PRIORITY                      34u   /* selectable sync priorities */
#define VMC_LIST_CAMERA_COMMAND_BAUD_RATE           35u   /* selectable camera command baud rates */
#define VMC_LIST_VIDEO_OUT_SIGNAL                   36u   /* selectable video output signals */
#define VMC_LIST_VIDEO_OUT_HDSDI                    37u   /* selectable HD-SDI video outputs */
#define VMC_LIST_DOWNLOAD_MODE                      38u   /* selectable download modes */
#define VMC_LIST_HIGH_SPEED_MODE                    39u   /* selectable high-speed modes */
#define VMC_LIST_SHUTTER_SPEED_NSEC                 40u   /* selectable shutter speeds, nanoseconds */
#define VMC_LIST_AE_SHUTTER_NSEC                    41u   /* auto-exposure shutter speeds, nanoseconds */
#define VMC_LIST_LIVE_RESOLUTION_SCALE              42u   /* selectable live resolution scales */
#define VMC_LIST_SHADING_TYPE                       44u   /* selectable shading types */
#define VMC_LIST_BLACK_CLIP_LEVEL                   45u   /* selectable black clip levels */
#define VMC_LIST_RECORDING_TYPE                     46u   /* selectable recording types */
#define VMC_LIST_EXPOSE_OUT_TIMES_1                 47u   /* exposure-output times of port signals 13/14 */
#define VMC_LIST_EXPOSE_OUT_TIMES_2                 48u   /* exposure-output times of port signals 82/88 */
#define VMC_LIST_MEM_TRIGGER_FRAME                  49u   /* trigger frames of the recording */
#define VMC_LIST_PARTITION_INC_MODE                 50u   /* selectable partition increment modes */
#define VMC_LIST_ADC_RANGE                          51u   /* selectable ADC ranges */
#define VMC_LIST_EXTERNAL_IO_TYPE                   52u   /* I/O types of an external port (sub = port) */
#define VMC_LIST_TEMPERATURE_TYPE                   53u   /* temperature types that can be read */
#define VMC_LIST_TEMPERATURE_TYPE_M                 54u   /* temperature types, M variant */
#define VMC_LIST_PIXEL_DEFECT_UPLOAD                55u   /* written empty: upload the pixel defect list */
#define VMC_LIST_PIXEL_DEFECT_DOWNLOAD              56u   /* written empty: download the pixel defect list */
#define VMC_LIST_DELAY_TYPE                         57u   /* delay types the device has */
#define VMC_LIST_DEVICE_ERROR                       58u   /* errors the device reports */

/* Data blocks: DEV_GetData, DEV_SetData. */
#define VMC_DATA_MEM_IRIG                           0u    /* IRIG records of recorded frames */
#define VMC_DATA_MEM_MCDL                           1u    /* MCDL records of recorded frames */
#define VMC_DATA_MEM_IRIG_AND_MCDL                  2u    /* IRIG and MCDL records of recorded frames */
#define VMC_DATA_LUT_PARAMS                         3u    /* look-up table parameters (sub = table) */
#define VMC_DATA_PIXEL_GAIN                         4u    /* pixel gain table; read with sub = index */
#define VMC_DATA_PIXEL_GAIN_CREATE                  5u    /* create pixel gain data from a shot */
#define VMC_DATA_PIXEL_VALUE                        6u    /* pixel values */
#define VMC_DATA_CAMERA_COMMAND                     7u    /* raw camera command */
#define VMC_DATA_PIXEL_GAIN_HARD                    8u    /* commit pixel gain data to the head; no data */
#define VMC_DATA_MEM_MCDL_BYTE                      9u    /* MCDL bytes of recorded frames */
#define VMC_DATA_PIXEL_GAIN_CREATE_2L               10u   /* create pixel gain data, 2L variant */
#define VMC_DATA_PIXEL_GAIN_CREATE_2H               11u   /* create pixel gain data, 2H variant */
#define VMC_DATA_PIXEL_GAIN_CREATE_M                12u   /* create pixel gain data, M variant */
#define VMC_DATA_AVERAGE_PIXEL_GAIN_VALUE           13u   /* average pixel gain, three words */
#define VMC_DATA_VFPN                               14u   /* VFPN data */
#define VMC_DATA_SENSOR_LUT                         15u   /* sensor look-up table */
#define VMC_DATA_LENS_CONTROL                       16u   /* lens control block */
#define VMC_DATA_EXPOSE_TIME                        17u   /* exposure time data */
#define VMC_DATA_PHASE_ADJUST                       19u   /* phase adjustment data */
#define VMC_DATA_FOUR_THIRDS_LENS_CONTROL           20u   /* Four Thirds lens control block */
#define VMC_DATA_PIXEL_GAIN_CREATE_MODE3            21u   /* create mode-3 pixel gain data (sub = high << 16 | low) */
#define VMC_DATA_PIXEL_GAIN_MODE3_HARD              22u   /* commit mode-3 pixel gain data to the head; no data */
#define VMC_DATA_PIXEL_GAIN_CREATE_MODE4            23u   /* create mode-4 pixel gain data (sub = mode); no data */
#define VMC_DATA_GLOBAL_GAIN_CREATE                 24u   /* create global gain data; no data */
#define VMC_DATA_SSD_BOX_DATA_NAME                  33u   /* name of an SSD box recording */
#define VMC_DATA_MEM_ADC_BYTE                       35u   /* ADC bytes of recorded frames */
#define VMC_DATA_MEM_AUTO_EXPOSURE_FPS              36u   /* auto-exposure shutter of recorded frames, 1/x s */
#define VMC_DATA_MEM_AUTO_EXPOSURE_NSEC             37u   /* auto-exposure shutter of recorded frames, nanoseconds */
#define VMC_DATA_DEVICE_MUTEX                       38u   /* device lock slot address (sub 0 device, 1..3 ch. 2..4) */
#define VMC_DATA_RAPID_PACK_RECORD_INFO             39u   /* RapidPack record information */
#define VMC_DATA_RAPID_PACK_IRIG                    41u   /* IRIG records of a RapidPack recording */
#define VMC_DATA_RAPID_PACK_SMART                   48u   /* SMART data of a RapidPack drive */
#define VMC_DATA_RAPID_PACK_ADC_BYTE                49u   /* ADC bytes of a RapidPack recording */
#define VMC_DATA_RAPID_PACK_MEM_BUF_USE_BYTE        50u   /* memory buffer use of a RapidPack recording */
#define VMC_DATA_ACCELERATION                       52u   /* acceleration data of recorded frames */
#define VMC_DATA_PIXEL_GAIN_MODE3_SET               54u   /* write mode-3 pixel gain data */
#define VMC_DATA_PIXEL_GAIN_MODE3_GET               55u   /* read mode-3 pixel gain data (sub = index) */
#define VMC_DATA_MEDIA_RECORD_INFO                  57u   /* record information of a medium */
#define VMC_DATA_GLOBAL_MUTEX                       58u   /* address of the library-wide lock slot */
#define VMC_DATA_RAPID_PACK_PASSWORD                59u   /* set the RapidPack password */
#define VMC_DATA_MEM_TEMPERATURE                    60u   /* temperatures of recorded frames */
#define VMC_DATA_WIFI_PASSWORD                      61u   /* Wi-Fi password (sub = kind) */
#define VMC_DATA_RAPID_PACK_AUTO_EXPOSURE           62u   /* auto-exposure data of a RapidPack recording */
#define VMC_DATA_RAPID_PACK_TEMPERATURE             63u   /* temperatures of a RapidPack recording */
#define VMC_DATA_RAPID_PACK_PASSWORD_ENTRY          64u   /* enter the RapidPack password */
#define VMC_DATA_ADJUSTMENT                         65u   /* adjustment data (sub = index) */
#define VMC_DATA_RAPID_PACK_ACCELERATION            66u   /* acceleration data of a RapidPack recording */
#define VMC_DATA_INHERENT_INFO                      67u   /* inherent information of the head */
#define VMC_DATA_LIVE_IMAGE_IRIG                    68u   /* IRIG record of the live image */
#define VMC_DATA_MANUFACTURE_VERSION_INFO           69u   /* manufacturing version information */
#define VMC_DATA_MEDIA_ACCELERATION                 71u   /* acceleration data of a media recording */
#define VMC_DATA_MESSAGE                            72u   /* data of a message's answer */
#define VMC_DATA_SHADING                            74u   /* shading data */
#define VMC_DATA_TELNET_COMMAND                     75u   /* one telnet command (sub = index) */

#endif /* VMC_CODES_H */
