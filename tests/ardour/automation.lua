-- Draws an automation lane on Gain1, plays it back and reports, at positions on and
-- between the drawn points, the lane's value and the equaliser's own.
dofile(os.getenv("ZT_LUA_DIR") .. "/common.lua")

run_and_finish(function()
	local session, track, equaliser = new_equaliser_session()
	local gain1 = tonumber(os.getenv("ZT_AUTOMATED"))
	local list, curve, descriptor = ARDOUR.LuaAPI.plugin_automation(equaliser, gain1)
	assert(not list:isnil(), "Gain1 automation")
	for position, value in pairs(values_from("ZT_POINTS")) do
		curve:add(Temporal.timepos_t(position), presented_point(equaliser, gain1, value), false, false)
	end
	local parameter = Evoral.Parameter(ARDOUR.AutomationType.PluginAutomation, 0, gain1)
	local control = equaliser:to_automatable():automation_control(parameter, false)
	control:set_automation_state(ARDOUR.AutoState.Play)

	for position in string.gmatch(os.getenv("ZT_PROBES"), "%d+") do
		session:request_locate(tonumber(position), false, ARDOUR.LocateTransportDisposition.MustStop,
			ARDOUR.TransportRequestSource.TRS_UI)
		for attempt = 1, 50 do
			wait_for_processing()
			if session:transport_sample() == tonumber(position) then break end
		end
		wait_for_processing()
		result("at", position, number(curve:eval(Temporal.timepos_t(tonumber(position)))),
			number(plugin_value(equaliser, gain1)))
	end
end)
