/* SPDX-License-Identifier: MIT */
/* What is compiled behind each public header: ISO C wants one declaration. */
extern int alone;
