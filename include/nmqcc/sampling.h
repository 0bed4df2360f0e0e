/* Part of nmqcc.h: include <nmqcc.h>, not this file. */
#ifndef NMQCC_SAMPLING_H
#define NMQCC_SAMPLING_H
#ifndef NMQCC_H
#error "include <nmqcc.h>"
#endif

#endif
