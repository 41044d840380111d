/* The message-catalogue interface glib is built against on Windows. Zephyra ships no
   translations of glib's messages, so these functions hand back the message they are
   given (or its singular or plural form) and remember nothing. */
#ifndef ZEPHYRA_DEPS_LIBINTL_H
#define ZEPHYRA_DEPS_LIBINTL_H

#ifdef __cplusplus
extern "C" {
#endif

char *gettext(const char *msgid);
char *dgettext(const char *domainname, const char *msgid);
char *dcgettext(const char *domainname, const char *msgid, int category);
char *ngettext(const char *msgid, const char *msgid_plural, unsigned long int n);
char *dngettext(const char *domainname, const char *msgid, const char *msgid_plural,
                unsigned long int n);
char *dcngettext(const char *domainname, const char *msgid, const char *msgid_plural,
                 unsigned long int n, int category);
char *textdomain(const char *domainname);
char *bindtextdomain(const char *domainname, const char *dirname);
char *bind_textdomain_codeset(const char *domainname, const char *codeset);

#ifdef __cplusplus
}
#endif

#endif
