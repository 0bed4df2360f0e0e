/* Part of nmqcc.h: include <nmqcc.h>, not this file. */
#ifndef NMQCC_AHD_H
#define NMQCC_AHD_H
#ifndef NMQCC_H
#error "include <nmqcc.h>"
#endif

#endif
