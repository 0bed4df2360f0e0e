/* Part of nmqcc.h: include <nmqcc.h>, not this file. */
#ifndef NMQCC_EXTRA_H
#define NMQCC_EXTRA_H
#ifndef NMQCC_H
#error "include <nmqcc.h>"
#endif

#endif
