/* Part of nmqcc.h: include <nmqcc.h>, not this file. */
#ifndef NMQCC_TWIST_H
#define NMQCC_TWIST_H
#ifndef NMQCC_H
#error "include <nmqcc.h>"
#endif

#endif
