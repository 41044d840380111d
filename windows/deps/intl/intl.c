/* No-translation message catalogue: see libintl.h. */
#include "libintl.h"

#include <stddef.h>

static char *untranslated(const char *msgid, const char *msgid_plural, unsigned long int n)
{
    return (char *)(n == 1 || msgid_plural == NULL ? msgid : msgid_plural);
}

char *gettext(const char *msgid)
{
    return untranslated(msgid, NULL, 1);
}

char *dgettext(const char *domainname, const char *msgid)
{
    (void)domainname;
    return untranslated(msgid, NULL, 1);
}

char *dcgettext(const char *domainname, const char *msgid, int category)
{
    (void)domainname;
    (void)category;
    return untranslated(msgid, NULL, 1);
}

char *ngettext(const char *msgid, const char *msgid_plural, unsigned long int n)
{
    return untranslated(msgid, msgid_plural, n);
}

char *dngettext(const char *domainname, const char *msgid, const char *msgid_plural,
                unsigned long int n)
{
    (void)domainname;
    return untranslated(msgid, msgid_plural, n);
}

char *dcngettext(const char *domainname, const char *msgid, const char *msgid_plural,
                 unsigned long int n, int category)
{
    (void)domainname;
    (void)category;
    return untranslated(msgid, msgid_plural, n);
}

/* The current domain is always the default one: no catalogue is ever read. */
char *textdomain(const char *domainname)
{
    static char current[] = "messages";
    (void)domainname;
    return current;
}

char *bindtextdomain(const char *domainname, const char *dirname)
{
    (void)domainname;
    return (char *)dirname;
}

char *bind_textdomain_codeset(const char *domainname, const char *codeset)
{
    (void)domainname;
    return (char *)codeset;
}
