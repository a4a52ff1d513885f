Function Shared() : Shared = "from the other module" : End Function
