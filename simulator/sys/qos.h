// Classes of the quality of service. Work of a higher one is begun before waiting work of a lower one.
#pragma once

typedef enum : unsigned int {
  QOS_CLASS_USER_INTERACTIVE = 0x21,
  QOS_CLASS_USER_INITIATED = 0x19,
  QOS_CLASS_DEFAULT = 0x15,
  QOS_CLASS_UTILITY = 0x11,
  QOS_CLASS_BACKGROUND = 0x09,
  QOS_CLASS_UNSPECIFIED = 0x00,
} qos_class_t;
#define QOS_MIN_RELATIVE_PRIORITY (-15)
