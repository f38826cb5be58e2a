#include "script/script.h"

QString Script::quoted(const QString &text)
{
    return "&apos;" + text + "&apos;";
}

QString Script::var(const QString &name)
{
    return "var " + quoted(name);
}

QString Script::ifElse(const QString &condition, const QString &then)
{
    return condition + " ? " + then;
}

QString Script::ifElse(const QString &condition, const QString &then, const QString &otherwise)
{
    return ifElse(condition, then) + " : " + otherwise;
}

QString Script::color(const QString &name)
{
    return "color " + quoted(name);
}

QString Script::color(const QString &brightness, const QString &name)
{
    return "color " + brightness + " " + quoted(name);
}

QString Script::os2lButton(const QString &name)
{
    return "os2l_button " + quoted(name);
}

QString Script::lightsHaveKeys()
{
    return var("$os2l");
}

QString Script::toggleLights()
{
    return "toggle " + quoted("$os2l");
}
