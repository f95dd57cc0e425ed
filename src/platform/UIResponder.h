// What can be told of events: the common base of those whom the application's loop addresses. Views
// need none here, since Qt's focus and grabs lead touches and keys to them.
#pragma once

class UIResponder
{
public:
    virtual ~UIResponder() = default;
};
