/* Part of nmqcc.h: include <nmqcc.h>, not this file. */
#ifndef NMQCC_REDUCE_H
#define NMQCC_REDUCE_H
#ifndef NMQCC_H
#error "include <nmqcc.h>"
#endif

#endif
