/* Part of nmqcc.h: include <nmqcc.h>, not this file. */
#ifndef NMQCC_LUVLAB_H
#define NMQCC_LUVLAB_H
#ifndef NMQCC_H
#error "include <nmqcc.h>"
#endif

#endif
