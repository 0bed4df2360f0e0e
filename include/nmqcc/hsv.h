/* Part of nmqcc.h: include <nmqcc.h>, not this file. */
#ifndef NMQCC_HSV_H
#define NMQCC_HSV_H
#ifndef NMQCC_H
#error "include <nmqcc.h>"
#endif

#endif
