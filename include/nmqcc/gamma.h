/* Part of nmqcc.h: include <nmqcc.h>, not this file. */
#ifndef NMQCC_GAMMA_H
#define NMQCC_GAMMA_H
#ifndef NMQCC_H
#error "include <nmqcc.h>"
#endif

#endif
