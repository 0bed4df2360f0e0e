/* Part of nmqcc.h: include <nmqcc.h>, not this file. */
#ifndef NMQCC_PACKED16_H
#define NMQCC_PACKED16_H
#ifndef NMQCC_H
#error "include <nmqcc.h>"
#endif

#endif
