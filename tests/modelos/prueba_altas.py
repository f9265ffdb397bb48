#!/usr/bin/env python3
