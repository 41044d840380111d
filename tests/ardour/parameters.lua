-- Sets every parameter through Ardour's own API at the point of the presented range that
-- means the driver's values, once through set_processor_param and once through the
-- automation controls, and reports what the equaliser itself holds after each; also
-- what Ardour presents for each control.
dofile(os.getenv("ZT_LUA_DIR") .. "/common.lua")

run_and_finish(function()
	local session, track, equaliser = new_equaliser_session()
	local plug = equaliser:to_insert():plugin(0)
	for index = 0, plug:parameter_count() - 1 do
		local _, out = plug:get_parameter_descriptor(index, ARDOUR.ParameterDescriptor())
		local d = out[2]
		result("control", index, number(d.lower), number(d.upper), tostring(d.toggled), d.label)
	end

	local targets = values_from("ZT_TARGETS")
	set_through_processor_param(equaliser, targets)
	report_values("processor_param", equaliser)

	-- Moved away first, so that each control's value is a change the equaliser must see.
	local away = {}
	for index, value in pairs(targets) do
		away[index] = value < 0.5 and 0.875 or 0.125
	end
	set_through_processor_param(equaliser, away)
	local automatable = equaliser:to_automatable()
	for index, value in pairs(targets) do
		local parameter = Evoral.Parameter(ARDOUR.AutomationType.PluginAutomation, 0, index)
		local control = automatable:automation_control(parameter, false)
		control:set_value(presented_point(equaliser, index, value), PBD.GroupControlDisposition.NoGroup)
	end
	wait_for_processing()
	report_values("automation_control", equaliser)
end)
