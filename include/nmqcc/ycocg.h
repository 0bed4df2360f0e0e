/* Part of nmqcc.h: include <nmqcc.h>, not this file. */
#ifndef NMQCC_YCOCG_H
#define NMQCC_YCOCG_H
#ifndef NMQCC_H
#error "include <nmqcc.h>"
#endif

#endif
