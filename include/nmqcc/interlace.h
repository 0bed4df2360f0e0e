/* Part of nmqcc.h: include <nmqcc.h>, not this file. */
#ifndef NMQCC_INTERLACE_H
#define NMQCC_INTERLACE_H
#ifndef NMQCC_H
#error "include <nmqcc.h>"
#endif

#endif
