/* Part of nmqcc.h: include <nmqcc.h>, not this file. */
#ifndef NMQCC_XYZ_H
#define NMQCC_XYZ_H
#ifndef NMQCC_H
#error "include <nmqcc.h>"
#endif

#endif
