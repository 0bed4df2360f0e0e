/* Part of nmqcc.h: include <nmqcc.h>, not this file. */
#ifndef NMQCC_GRAY_H
#define NMQCC_GRAY_H
#ifndef NMQCC_H
#error "include <nmqcc.h>"
#endif

#endif
